#!/usr/bin/env python3
"""Big inputs for scripts/bench.sh, made on the fly so that nothing large is committed.

  bench-inputs.py prefs LINES OUT            prefs.js of LINES preferences
  bench-inputs.py registry PROFILES MB DIR OUT  Mozilla registry.dat of PROFILES profiles, about MB
  bench-inputs.py adapters COUNT OUT         REGEDIT4 file with COUNT more XP adapters
  bench-inputs.py profile LINES BASE OUT     BASE profile padded to LINES lines
"""
import struct
import sys

CLASS = "{4D36E972-E325-11CE-BFC1-08002BE10318}"


def prefs(lines, out):
    # The preferences the Netscape section of the bench's profile changes are
    # spread through the file, as a long-used profile has them.
    changed = [
        "network.proxy.type", "network.proxy.http", "network.proxy.http_port",
        "network.proxy.ssl", "network.proxy.ssl_port", "network.proxy.ftp",
        "network.proxy.ftp_port", "network.proxy.gopher", "network.proxy.gopher_port",
        "network.proxy.socks", "network.proxy.socks_port", "network.proxy.socks_version",
        "network.proxy.no_proxies_on", "network.proxy.autoconfig_url", "browser.startup.homepage",
    ]
    with open(out, "w", newline="") as f:
        f.write('# Mozilla User Preferences\r\n\r\n')
        step = max(1, lines // (len(changed) + 1))
        for i in range(lines):
            if i % step == step // 2 and i // step < len(changed):
                name = changed[i // step]
                f.write('user_pref("%s", "old-%d");\r\n' % (name, i))
            else:
                f.write('user_pref("bench.filler.pref%05d", "value number %d");\r\n' % (i, i))


def registry(profiles, megabytes, folder, out):
    # Nodes as Mozilla lays them out: name, 32-byte descriptor, value.
    nodes = []  # [name, type, value, parent, keys, entries, offset, value_offset]

    def add(parent, name, type_, value=b""):
        nodes.append([name, type_, value, parent, [], [], 0, 0])
        node = len(nodes) - 1
        if parent is not None:
            nodes[parent][4 if type_ == 1 else 5].append(node)
        return node

    root = add(None, "/", 1)
    add(root, "Users", 1)
    common = add(root, "Common", 1)
    plist = add(common, "Profiles", 1)
    add(plist, "Version", 0x11, b"1.0\0")
    add(plist, "CurrentProfile", 0x11, b"bench\0")
    # A few entries per profile, as Mozilla writes them, made long to reach the size.
    filler = b"x" * 1200 + b"\0"
    per_profile = max(0, round(megabytes * 1024 * 1024 / max(1, profiles) / 1260))
    for i in range(profiles):
        name = "bench" if i == profiles - 1 else "profile%04d" % i
        key = add(plist, name, 1)
        add(key, "directory", 0x11, ("%s\\Mozilla\\Profiles\\%s\\abcd%04d.slt\0" % (folder, name, i)).encode())
        for j in range(per_profile):
            add(key, "note%03d" % j, 0x11, filler)
    out_bytes = bytearray(16) + bytearray(112)

    def lay(n):
        node = nodes[n]
        name_at = len(out_bytes)
        out_bytes.extend(node[0].encode() + b"\0")
        node[6] = len(out_bytes)
        out_bytes.extend(bytearray(32))
        struct.pack_into("<IIHH", out_bytes, node[6], node[6], name_at, len(node[0]) + 1, node[1])
        if node[1] != 1:
            node[7] = len(out_bytes)
            out_bytes.extend(node[2])
        for c in node[5]:
            lay(c)
        for c in node[4]:
            lay(c)

    sys.setrecursionlimit(10000)
    lay(root)
    for n, node in enumerate(nodes):
        at = node[6]
        if node[3] is not None:
            parent = nodes[node[3]]
            chain = parent[4] if node[1] == 1 else parent[5]
            i = chain.index(n)
            if i + 1 < len(chain):
                struct.pack_into("<I", out_bytes, at + 12, nodes[chain[i + 1]][6])
            struct.pack_into("<I", out_bytes, at + 28, parent[6])
        if node[1] == 1:
            if node[4]:
                struct.pack_into("<I", out_bytes, at + 16, nodes[node[4][0]][6])
            if node[5]:
                struct.pack_into("<I", out_bytes, at + 20, nodes[node[5][0]][6])
        else:
            struct.pack_into("<III", out_bytes, at + 16, len(node[2]), node[7], len(node[2]))
    struct.pack_into("<IHHII", out_bytes, 0, 0x76644441, 1, 2, len(out_bytes), nodes[root][6])
    with open(out, "wb") as f:
        f.write(out_bytes)


def adapters(count, out):
    with open(out, "w", newline="") as f:
        f.write("REGEDIT4\r\n\r\n")
        for i in range(count):
            guid = "{B0000000-0000-4000-8000-%012X}" % i
            inst = "PCI\\VEN_BE00&DEV_%04X\\BENCH%04d" % (i, i)
            cls = "%04d" % (100 + i)
            reg = inst.replace("\\", "\\\\")
            f.write(
                "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\NetworkCards\\%d]\r\n"
                '"ServiceName"="%s"\r\n"Description"="Bench Adapter %d"\r\n\r\n'
                "[HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Class\\%s\\%s]\r\n"
                '"DriverDesc"="Bench Adapter %d"\r\n"NetCfgInstanceId"="%s"\r\n"Characteristics"=dword:00000084\r\n\r\n'
                "[HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Network\\%s\\%s\\Connection]\r\n"
                '"Name"="Bench Connection %d"\r\n"PnpInstanceID"="%s"\r\n\r\n'
                "[HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Enum\\%s]\r\n"
                '"DeviceDesc"="Bench Adapter %d"\r\n"Class"="Net"\r\n"Driver"="%s\\\\%s"\r\n\r\n'
                "[HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\Tcpip\\Parameters\\Interfaces\\%s]\r\n"
                '"EnableDHCP"=dword:00000001\r\n"IPAddress"=hex(7):30,2e,30,2e,30,2e,30,00,00\r\n'
                '"SubnetMask"=hex(7):30,2e,30,2e,30,2e,30,00,00\r\n"NameServer"=""\r\n\r\n'
                % (100 + i, guid, i, CLASS, cls, i, guid, CLASS, guid, i, reg, inst, i, CLASS, cls, guid))


def profile(lines, base, out):
    text = open(base, newline="").read().replace("\r\n", "\n").rstrip("\n").split("\n")
    pad = max(0, lines - len(text))
    # Long profiles are long in their comment-like notes: one more section of keys.
    body = text + ["", "[Notes]"] + ["Note%05d=kept as it is, never applied" % i for i in range(pad - 2)]
    with open(out, "w", newline="") as f:
        f.write("\r\n".join(body) + "\r\n")


if __name__ == "__main__":
    kind, args = sys.argv[1], sys.argv[2:]
    if kind == "prefs":
        prefs(int(args[0]), args[1])
    elif kind == "registry":
        registry(int(args[0]), int(args[1]), args[2], args[3])
    elif kind == "adapters":
        adapters(int(args[0]), args[1])
    elif kind == "profile":
        profile(int(args[0]), args[1], args[2])
    else:
        sys.exit(__doc__)
