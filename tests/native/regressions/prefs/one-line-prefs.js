user_pref("network.proxy.http", "proxy.example");
