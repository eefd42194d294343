// Layout shared by the browser pages of the main window's tab control (their
// resource scripts include it): the page frame, the home page row at the top,
// and the host ":" port fields of one proxy. Sizes are dialog units.
#pragma once

// clang-format off
#define BROWSER_TAB_STYLE DS_SHELLFONT | DS_CONTROL | WS_CHILD
#define BROWSER_TAB_WIDTH 324
#define BROWSER_TAB_HEIGHT 190

// The start page, across the whole page.
#define HOME_PAGE_ROW(labelId, editId)                        \
    LTEXT "&Home page:", labelId, 6, 8, 44, 8                 \
    EDITTEXT editId, 52, 6, 266, 12, ES_AUTOHSCROLL | WS_GROUP

// A proxy's host field at x, y (width w), a colon, and its port field.
#define PROXY_PORT_WIDTH 30
#define PROXY_FIELDS(x, y, w, hostId, portId)                              \
    EDITTEXT hostId, x, y, w, 12, ES_AUTOHSCROLL                          \
    LTEXT ":", -1, (x) + (w) + 2, (y) + 2, 4, 8                           \
    EDITTEXT portId, (x) + (w) + 8, y, PROXY_PORT_WIDTH, 12, ES_AUTOHSCROLL
// clang-format on
