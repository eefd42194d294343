; Roamwise's installer, built by scripts/package.sh with makensis.
;   makensis -DBINDIR=<folder of Rwz.exe and RwzSysTray.exe> Roamwise.nsi
; builds what users get: the 32-bit ANSI installer, carrying the 32-bit
; programs, which runs on Windows 95 to Server 2003. With -DAMD64 the same
; script builds an installer for the 64-bit programs (the one the tests run).
; Options: -DOUTFILE=<installer path>, -DSRCDIR=<source tree>.

!include "WinMessages.nsh"

!ifndef BINDIR
  !error "BINDIR: the folder holding Rwz.exe and RwzSysTray.exe"
!endif
!ifndef SRCDIR
  !define SRCDIR ".."
!endif
!ifndef OUTFILE
  !define OUTFILE "RoamwiseSetup.exe"
!endif

!ifdef AMD64
  Target amd64-unicode
!else
  Target x86-ansi
!endif

!define PRODUCT "Roamwise"
!define VERSION "1.0.0"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Roamwise"
!define FILE_TYPE "rwz_auto_file"
!define OPEN_VERB "Open with Roamwise"
; The windows of the running programs, found by their classes.
!define TRAY_CLASS "RwzSysTrayWindow"
!define MAIN_CLASS "RoamwiseMain"

Name "${PRODUCT}"
OutFile "${OUTFILE}"
!ifdef AMD64
  InstallDir "$PROGRAMFILES64\${PRODUCT}"
!else
  InstallDir "$PROGRAMFILES\${PRODUCT}"
!endif
InstallDirRegKey HKLM "${UNINSTALL_KEY}" "InstallLocation"
RequestExecutionLevel admin
SetCompressor /SOLID lzma
ShowInstDetails show
ShowUninstDetails show

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "${PRODUCT}"
VIAddVersionKey "FileDescription" "${PRODUCT} Setup"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "CompanyName" "${PRODUCT}"
VIAddVersionKey "LegalCopyright" "${PRODUCT}"

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

; Asks the running program whose window has the class to close, and waits for
; it; the user may refuse, which ends setup. Silent runs close it.
!macro CloseProgram UN CLASS WHAT
  Function ${UN}Close${WHAT}
    FindWindow $0 "${CLASS}"
    StrCmp $0 0 done
    MessageBox MB_OKCANCEL|MB_ICONEXCLAMATION "${WHAT} is running. Setup closes it to go on." /SD IDOK IDOK close
    Abort
  close:
    SendMessage $0 ${WM_CLOSE} 0 0 /TIMEOUT=5000
    StrCpy $1 0
  wait:
    Sleep 200
    FindWindow $0 "${CLASS}"
    StrCmp $0 0 done
    IntOp $1 $1 + 1
    IntCmp $1 50 0 wait
    MessageBox MB_OK|MB_ICONSTOP "${WHAT} did not close. Close it and run setup again." /SD IDOK
    Abort
  done:
  FunctionEnd
!macroend
!insertmacro CloseProgram "" "${TRAY_CLASS}" "Tray"
!insertmacro CloseProgram "un." "${TRAY_CLASS}" "Tray"
!insertmacro CloseProgram "" "${MAIN_CLASS}" "Roamwise"
!insertmacro CloseProgram "un." "${MAIN_CLASS}" "Roamwise"

Function .onInit
!ifdef AMD64
  SetRegView 64
!endif
FunctionEnd

Function un.onInit
!ifdef AMD64
  SetRegView 64
!endif
FunctionEnd

Section "Roamwise"
  Call CloseTray
  Call CloseRoamwise
  SetShellVarContext all
  SetOutPath "$INSTDIR"
  File "${BINDIR}\Rwz.exe"
  File "${BINDIR}\RwzSysTray.exe"
  File "${SRCDIR}\installer\Rwz.exe.manifest"
  File "${SRCDIR}\installer\RwzSysTray.exe.manifest"
  File "${SRCDIR}\src\localization\*.slf"
  ; The hosts file add-in: registered for COM and entered in the program
  ; settings, so that Tools offers it on every system.
  SetOutPath "$INSTDIR\AddIns"
  File "${BINDIR}\AddIns\RwzHosts.dll"
  RegDLL "$INSTDIR\AddIns\RwzHosts.dll"
  WriteRegStr HKLM "Software\${PRODUCT}\Add-Ins" "Hosts File" ""
  WriteRegStr HKLM "Software\${PRODUCT}\Add-Ins\Hosts File" "Class" "Roamwise.HostsFile"
  WriteRegStr HKLM "Software\${PRODUCT}\Add-Ins\Hosts File" "File" "$INSTDIR\AddIns\RwzHosts.dll"
  WriteRegStr HKLM "Software\${PRODUCT}\Add-Ins\Hosts File" "Version" "${VERSION}"
  WriteRegStr HKLM "Software\${PRODUCT}\Add-Ins\Hosts File" "OS" "*"
  ; A user who switched it off in the add-in manager keeps it off.
  ReadRegStr $0 HKLM "Software\${PRODUCT}\Add-Ins\Hosts File" "Active"
  StrCmp $0 "" 0 +2
  WriteRegStr HKLM "Software\${PRODUCT}\Add-Ins\Hosts File" "Active" "1"
  SetOutPath "$INSTDIR\Examples"
  File "${SRCDIR}\examples\office.rwz"
  File "${SRCDIR}\examples\home.rwz"
  File "${SRCDIR}\examples\client-site.rwz"
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\Uninstall.exe"

  CreateDirectory "$SMPROGRAMS\${PRODUCT}"
  CreateShortCut "$SMPROGRAMS\${PRODUCT}\Roamwise.lnk" "$INSTDIR\Rwz.exe" "" "$INSTDIR\Rwz.exe" 0
  CreateShortCut "$SMPROGRAMS\${PRODUCT}\Roamwise Tray.lnk" "$INSTDIR\RwzSysTray.exe" "" "$INSTDIR\RwzSysTray.exe" 0
  CreateShortCut "$SMPROGRAMS\${PRODUCT}\Example Profiles.lnk" "$INSTDIR\Examples"
  CreateShortCut "$SMPROGRAMS\${PRODUCT}\Uninstall Roamwise.lnk" "$INSTDIR\Uninstall.exe"

  ; Double-clicking a profile opens it in the program.
  WriteRegStr HKCR ".rwz" "" "${FILE_TYPE}"
  WriteRegStr HKCR "${FILE_TYPE}" "" "Roamwise Profile"
  WriteRegStr HKCR "${FILE_TYPE}\DefaultIcon" "" "$INSTDIR\Rwz.exe,0"
  WriteRegStr HKCR "${FILE_TYPE}\shell" "" "${OPEN_VERB}"
  ; Quoted: the program's folder usually has a blank in its name.
  WriteRegStr HKCR "${FILE_TYPE}\shell\${OPEN_VERB}\command" "" '"$INSTDIR\Rwz.exe" "%1"'
  ; The standard verb too: shells that do not take the named default use "open".
  WriteRegStr HKCR "${FILE_TYPE}\shell\open\command" "" '"$INSTDIR\Rwz.exe" "%1"'
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'

  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "${PRODUCT}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "${PRODUCT}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Rwz.exe,0"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section "Uninstall"
  Call un.CloseTray
  Call un.CloseRoamwise
  SetShellVarContext all
  ; Only what setup installed: profiles the user saved here stay, and so does
  ; the folder that holds them.
  Delete "$INSTDIR\Rwz.exe"
  Delete "$INSTDIR\RwzSysTray.exe"
  ; The options dialog renames the manifests to switch the XP look off.
  Delete "$INSTDIR\Rwz.exe.manifest"
  Delete "$INSTDIR\Rwz.exe.manifest.disabled"
  Delete "$INSTDIR\RwzSysTray.exe.manifest"
  Delete "$INSTDIR\RwzSysTray.exe.manifest.disabled"
  Delete "$INSTDIR\*.slf"
  UnRegDLL "$INSTDIR\AddIns\RwzHosts.dll"
  Delete "$INSTDIR\AddIns\RwzHosts.dll"
  RMDir "$INSTDIR\AddIns"
  DeleteRegKey HKLM "Software\${PRODUCT}\Add-Ins\Hosts File"
  DeleteRegValue HKLM "Software\${PRODUCT}\Add-Ins" "Hosts File"
  Delete "$INSTDIR\DEBUG.LOG"
  Delete "$INSTDIR\Examples\office.rwz"
  Delete "$INSTDIR\Examples\home.rwz"
  Delete "$INSTDIR\Examples\client-site.rwz"
  Delete "$INSTDIR\Uninstall.exe"
  RMDir "$INSTDIR\Examples"
  RMDir "$INSTDIR"

  Delete "$SMPROGRAMS\${PRODUCT}\Roamwise.lnk"
  Delete "$SMPROGRAMS\${PRODUCT}\Roamwise Tray.lnk"
  Delete "$SMPROGRAMS\${PRODUCT}\Example Profiles.lnk"
  Delete "$SMPROGRAMS\${PRODUCT}\Uninstall Roamwise.lnk"
  RMDir "$SMPROGRAMS\${PRODUCT}"

  ; The association, only while it is still this program's.
  ReadRegStr $0 HKCR ".rwz" ""
  StrCmp $0 "${FILE_TYPE}" 0 +2
  DeleteRegKey HKCR ".rwz"
  DeleteRegKey HKCR "${FILE_TYPE}"
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
  ; Start-up entries the options dialog may have written.
  DeleteRegValue HKLM "Software\Microsoft\Windows\CurrentVersion\Run" "RwzSysTray"
  DeleteRegValue HKLM "Software\Microsoft\Windows\CurrentVersion\Run" "Roamwise"
  DeleteRegKey HKLM "${UNINSTALL_KEY}"
SectionEnd
