# Mozilla User Preferences

/* Written by the browser when it exits; do not edit it while the browser runs,
 * or the changes are lost. Preferences can also be changed on about:config.
 */

user_pref("browser.anchor_color", "#0000EE");
user_pref("browser.display.use_system_colors", true);
user_pref("browser.history_expire_days", 30);
user_pref("browser.startup.homepage", "http://extranet.client.example/");
user_pref("browser.startup.page", 1);
user_pref("browser.toolbars.showbutton.mail", false);
user_pref("browser.urlbar.autoFill", true);
user_pref("dom.disable_open_during_load", true);
user_pref("font.name.serif.x-western", "Georgia");
user_pref("font.size.variable.x-western", 15);
user_pref("intl.accept_languages", "en-us,en,fr");
user_pref("mousewheel.withnokey.numlines", 3);
user_pref("network.cookie.cookieBehavior", 1);
user_pref("network.image.imageBehavior", 0);
user_pref("privacy.popups.first_popup", false);
user_pref("privacy.sanitize.promptOnSanitize", false);
user_pref("signon.rememberSignons", true);
user_pref("wallet.captureForms", false);
user_pref("network.proxy.http", "web-proxy.client.example");
user_pref("network.proxy.http_port", 3128);
user_pref("network.proxy.ftp", "ftp-proxy.client.example");
user_pref("network.proxy.ftp_port", 2121);
user_pref("network.proxy.ssl", "web-proxy.client.example");
user_pref("network.proxy.ssl_port", 3129);
user_pref("network.proxy.gopher", "");
user_pref("network.proxy.gopher_port", 0);
user_pref("network.proxy.wais", "");
user_pref("network.proxy.wais_port", 0);
user_pref("network.proxy.socks", "socks.client.example");
user_pref("network.proxy.socks_port", 1081);
user_pref("network.proxy.socks_version", 4);
user_pref("network.proxy.no_proxies_on", "localhost, .client.example");
user_pref("network.proxy.type", 1);
