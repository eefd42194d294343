// Netscape User Preferences
// Netscape writes this file each time it exits; changes made while it runs are lost.

user_pref("browser.bookmark.file", "C:\\Netscape\\Users\\lee_chan\\bookmark.htm");
user_pref("browser.cache.directory", "C:\\Netscape\\Users\\lee_chan\\cache");
user_pref("browser.cache.disk_cache_size", 5120);
user_pref("browser.startup.homepage", "http://crew.northwind.example/");
user_pref("browser.startup.license_accepted", "4.79");
user_pref("browser.wfe.show_value", 1);
user_pref("browser.window_rect", "22,22,760,540");
user_pref("custtoolbar.Browser.Location_Toolbar.open", true);
user_pref("custtoolbar.Browser.Navigation_Toolbar.open", true);
user_pref("editor.author", "Lee Chan");
user_pref("intl.font_charset", "iso-8859-1");
user_pref("mail.addr_book.lastnamefirst", 0);
user_pref("mail.directory", "C:\\Netscape\\Users\\lee_chan\\Mail");
user_pref("mail.identity.organization", "Northwind Surveying");
user_pref("mail.identity.username", "Lee Chan");
user_pref("mail.identity.useremail", "lee.chan@northwind.example");
user_pref("mail.pop_name", "lee_chan");
user_pref("mail.remember_password", true);
user_pref("mail.server_type", 0);
user_pref("network.hosts.pop_server", "mail.northwind.example");
user_pref("network.hosts.smtp_server", "mail.northwind.example");
user_pref("network.proxy.autoconfig_url", "http://gate.northwind.example/proxy.pac");
user_pref("network.proxy.type", 2);
user_pref("news.directory", "C:\\Netscape\\Users\\lee_chan\\News");
user_pref("news.notify.on", false);
user_pref("security.ask_for_password", 0);
user_pref("security.warn_entering_secure", false);
user_pref("taskbar.floating", false);
user_pref("taskbar.x", -1);
user_pref("taskbar.y", 0);
