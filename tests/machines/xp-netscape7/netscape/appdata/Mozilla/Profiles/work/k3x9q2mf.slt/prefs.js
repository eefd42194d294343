# Mozilla User Preferences

/* Written by the browser when it exits; do not edit it while the browser runs,
 * or the changes are lost. Preferences can also be changed on about:config.
 */

user_pref("browser.bookmarks.added_static_root", true);
user_pref("browser.download.dir", "C:\\Documents and Settings\\Robin\\Desktop");
user_pref("browser.download.lastLocation", true);
user_pref("browser.startup.homepage", "http://portal.okafor-consulting.example/");
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
user_pref("network.proxy.ftp", "proxy.okafor-consulting.example");
user_pref("network.proxy.ftp_port", 8080);
user_pref("network.proxy.http", "proxy.okafor-consulting.example");
user_pref("network.proxy.http_port", 8080);
user_pref("network.proxy.no_proxies_on", "localhost, 127.0.0.1, .okafor-consulting.example");
user_pref("network.proxy.socks", "socks.okafor-consulting.example");
user_pref("network.proxy.socks_port", 1080);
user_pref("network.proxy.ssl", "proxy.okafor-consulting.example");
user_pref("network.proxy.ssl_port", 8080);
user_pref("network.proxy.type", 1);
user_pref("nglayout.initialpaint.delay", 250);
user_pref("security.warn_entering_secure", false);
user_pref("security.warn_leaving_secure", false);
user_pref("signon.expireMasterPassword", false);
user_pref("spellchecker.dictionary", "en-US");
user_pref("ui.key.saveLink.shift", false);
