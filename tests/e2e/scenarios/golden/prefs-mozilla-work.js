# Mozilla User Preferences

/* Written by the browser when it exits; do not edit it while the browser runs,
 * or the changes are lost. Preferences can also be changed on about:config.
 */

user_pref("browser.bookmarks.added_static_root", true);
user_pref("browser.download.dir", "C:\\Documents and Settings\\Robin\\Desktop");
user_pref("browser.download.lastLocation", true);
user_pref("browser.startup.homepage", "http://extranet.client.example/");
user_pref("browser.startup.homepage_override.mstone", "rv:1.7.2");
user_pref("browser.tabs.autoHide", false);
user_pref("editor.author", "Robin Okafor");
user_pref("intl.charsetmenu.browser.cache", "windows-1252, ISO-8859-1");
user_pref("mail.account.account1.identities", "id1");
user_pref("mail.account.account1.server", "server1");
user_pref("mail.accountmanager.accounts", "account1");
user_pref("mail.accountmanager.defaultaccount", "account1");
user_pref("mail.identity.id1.fullName", "Robin Okafor");
user_pref("mail.identity.id1.useremail", "robin@okafor-consulting.example");
user_pref("mail.identity.id1.valid", true);
user_pref("mail.server.server1.hostname", "mail.okafor-consulting.example");
user_pref("mail.server.server1.login_at_startup", true);
user_pref("mail.server.server1.type", "imap");
user_pref("mail.server.server1.userName", "robin");
user_pref("network.cookie.prefsMigrated", true);
user_pref("network.proxy.ftp", "ftp-proxy.client.example");
user_pref("network.proxy.ftp_port", 2121);
user_pref("network.proxy.http", "web-proxy.client.example");
user_pref("network.proxy.http_port", 3128);
user_pref("network.proxy.no_proxies_on", "localhost, .client.example");
user_pref("network.proxy.socks", "socks.client.example");
user_pref("network.proxy.socks_port", 1081);
user_pref("network.proxy.ssl", "web-proxy.client.example");
user_pref("network.proxy.ssl_port", 3129);
user_pref("network.proxy.type", 1);
user_pref("nglayout.initialpaint.delay", 250);
user_pref("security.warn_entering_secure", false);
user_pref("security.warn_leaving_secure", false);
user_pref("signon.expireMasterPassword", false);
user_pref("spellchecker.dictionary", "en-US");
user_pref("ui.key.saveLink.shift", false);
user_pref("network.proxy.gopher", "");
user_pref("network.proxy.gopher_port", 0);
user_pref("network.proxy.wais", "");
user_pref("network.proxy.wais_port", 0);
user_pref("network.proxy.socks_version", 4);
