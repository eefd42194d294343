// Netscape User Preferences
// Netscape writes this file each time it exits; changes made while it runs are lost.

user_pref("browser.bookmark.file", "C:\\Program Files\\Netscape\\Users\\sam\\bookmark.htm");
user_pref("browser.cache.directory", "C:\\Program Files\\Netscape\\Users\\sam\\cache");
user_pref("browser.cache.disk_cache_size", 5120);
user_pref("browser.startup.homepage", "about:blank");
user_pref("browser.startup.license_accepted", "4.79");
user_pref("browser.wfe.show_value", 1);
user_pref("browser.window_rect", "22,22,760,540");
user_pref("custtoolbar.Browser.Location_Toolbar.open", true);
user_pref("custtoolbar.Browser.Navigation_Toolbar.open", true);
user_pref("editor.author", "Sam Rivera");
user_pref("intl.font_charset", "iso-8859-1");
user_pref("mail.addr_book.lastnamefirst", 0);
user_pref("mail.directory", "C:\\Program Files\\Netscape\\Users\\sam\\Mail");
user_pref("mail.identity.organization", "Northwind Surveying");
user_pref("mail.identity.username", "Sam Rivera");
user_pref("mail.identity.useremail", "sam@northwind.example");
user_pref("mail.pop_name", "sam");
user_pref("mail.remember_password", true);
user_pref("mail.server_type", 0);
user_pref("network.hosts.pop_server", "mail.northwind.example");
user_pref("network.hosts.smtp_server", "mail.northwind.example");
user_pref("news.directory", "C:\\Program Files\\Netscape\\Users\\sam\\News");
user_pref("news.notify.on", false);
user_pref("security.ask_for_password", 0);
user_pref("security.warn_entering_secure", false);
user_pref("taskbar.floating", false);
user_pref("taskbar.x", -1);
user_pref("taskbar.y", 0);
