// Control ids of the General page of the main window.
#pragma once

#define IDC_GEN_ADAPTER 3001      // adapter box
#define IDC_GEN_ADAPTERTYPE 3002  // "[type]" beside it
#define IDC_GEN_TCPFRAME 3003
#define IDC_GEN_DHCP 3004
#define IDC_GEN_IPADDRESS 3005
#define IDC_GEN_IPINDEX 3006  // which entry of the address and mask lists
#define IDC_GEN_IPMASK 3007
#define IDC_GEN_GATEWAY 3008
#define IDC_GEN_DNSSERVERS 3009
#define IDC_GEN_SEARCHLIST 3010
#define IDC_GEN_WINS 3011
#define IDC_GEN_WINSSERVER1 3012
#define IDC_GEN_WINSSERVER2 3013
#define IDC_GEN_NAMEFRAME 3014
#define IDC_GEN_COMPUTERNAME 3015
#define IDC_GEN_DESCRIPTION 3016
#define IDC_GEN_HOST 3017
#define IDC_GEN_DOMAINNAME 3018
#define IDC_GEN_SCOPEID 3019
#define IDC_GEN_USEWORKGROUP 3020  // option buttons: workgroup or domain
#define IDC_GEN_USEDOMAIN 3021
#define IDC_GEN_WORKGROUP 3022
#define IDC_GEN_NTDOMAIN 3023
#define IDC_GEN_ACCOUNT 3024  // "Domain Account..."
#define IDC_GEN_SETPRINTER 3025
#define IDC_GEN_PRINTER 3026
#define IDC_GEN_PRINTERPORT 3027
#define IDC_GEN_QUICKLOGON 3028  // 95/98/ME only
#define IDC_GEN_PWDCACHE 3029
#define IDC_GEN_PRINTEROPTIONS 3030  // "Printer Options...", handled by the main window
#define IDC_GEN_DNS 3031             // DNS resolution on or off (NT 4, 95/98/ME)
// Labels of the fields, in the order above.
#define IDC_GEN_LABEL_ADAPTER 3101
#define IDC_GEN_LABEL_IPADDRESS 3102
#define IDC_GEN_LABEL_IPMASK 3103
#define IDC_GEN_LABEL_GATEWAY 3104
#define IDC_GEN_LABEL_DNSSERVERS 3105
#define IDC_GEN_LABEL_SEARCHLIST 3106
#define IDC_GEN_LABEL_WINSSERVERS 3107
#define IDC_GEN_LABEL_COMPUTERNAME 3108
#define IDC_GEN_LABEL_DESCRIPTION 3109
#define IDC_GEN_LABEL_HOST 3110
#define IDC_GEN_LABEL_DOMAINNAME 3111
#define IDC_GEN_LABEL_SCOPEID 3112
