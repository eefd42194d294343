// Netscape User Preferences
// Netscape writes this file each time it exits; changes made while it runs are lost.

user_pref("browser.bookmark.file", "C:\\Profiles\\pat\\bookmark.htm");
user_pref("browser.cache.directory", "C:\\Profiles\\pat\\cache");
user_pref("browser.cache.disk_cache_size", 5120);
user_pref("browser.startup.homepage", "http://www.northwind.example/");
user_pref("browser.startup.license_accepted", "4.79");
user_pref("browser.wfe.show_value", 1);
user_pref("browser.window_rect", "22,22,760,540");
user_pref("custtoolbar.Browser.Location_Toolbar.open", true);
user_pref("custtoolbar.Browser.Navigation_Toolbar.open", true);
user_pref("editor.author", "Pat Example");
user_pref("intl.font_charset", "iso-8859-1");
user_pref("mail.addr_book.lastnamefirst", 0);
user_pref("mail.directory", "C:\\Profiles\\pat\\Mail");
user_pref("mail.identity.organization", "Northwind Surveying");
user_pref("mail.identity.username", "Pat Example");
user_pref("mail.identity.useremail", "pat@northwind.example");
user_pref("mail.pop_name", "pat");
user_pref("mail.remember_password", true);
user_pref("mail.server_type", 0);
user_pref("network.hosts.pop_server", "mail.northwind.example");
user_pref("network.hosts.smtp_server", "mail.northwind.example");
user_pref("network.proxy.http", "gate.northwind.example");
user_pref("network.proxy.http_port", 3128);
user_pref("network.proxy.ssl", "gate.northwind.example");
user_pref("network.proxy.ssl_port", 3128);
user_pref("network.proxy.type", 1);
user_pref("news.directory", "C:\\Profiles\\pat\\News");
user_pref("news.notify.on", false);
user_pref("security.ask_for_password", 0);
user_pref("security.warn_entering_secure", false);
user_pref("taskbar.floating", false);
user_pref("taskbar.x", -1);
user_pref("taskbar.y", 0);
