; The installer, for one user and without administrator. ./dist gives:
;   VERSION, OUTPUT, FILES (lists what is installed and removed), SIZE (kilobytes), and what wizard.nsh needs
Target amd64-unicode
Name "Versewell ${VERSION}"
OutFile "${OUTPUT}"
RequestExecutionLevel user
SetCompressor /SOLID lzma
SetDateSave off
CRCCheck on
ManifestDPIAware true
ManifestSupportedOS all
BrandingText " "

; Not to be chosen: a folder with someone's notes would become the program's folder. An update goes to the folder of
; before, which may have been given by /D=.
!define USUAL_FOLDER "$LOCALAPPDATA\Programs\Versewell"
!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Versewell"
InstallDir "${USUAL_FOLDER}"
InstallDirRegKey HKCU "${ENTRY}" "InstallLocation"

VIProductVersion "${VERSION}.0"
VIAddVersionKey "CompanyName" "Versewell"
VIAddVersionKey "FileDescription" "Versewell: installation"
VIAddVersionKey "FileVersion" "${VERSION}.0"
VIAddVersionKey "LegalCopyright" ""
VIAddVersionKey "ProductName" "Versewell97"
VIAddVersionKey "ProductVersion" "${VERSION}"

!define LINK "$SMPROGRAMS\Versewell.lnk"
!define PROGRAM "$INSTDIR\versewell.exe"
!define APP_PATH "Software\Microsoft\Windows\CurrentVersion\App Paths\versewell.exe"

; The session of the restart manager that has closed the program; "" for none.
Var Closing

!include FileFunc.nsh
!include "${__FILEDIR__}/wizard.nsh"

; A program that runs cannot be replaced. The restart manager asks it to close, as at the end of a session: it keeps what
; is typed. A program that stays open is never ended by force; then nothing is changed, and the exit code is 3.
!macro CloseProgram un
  Function ${un}CanReplace  ; pushes 1 or 0
    IfFileExists "${PROGRAM}" 0 yes
    ClearErrors
    FileOpen $0 "${PROGRAM}" a
    IfErrors no
    FileClose $0
  yes:
    Push 1
    Return
  no:
    Push 0
  FunctionEnd

  Function ${un}EndClosing
    StrCmp $Closing "" end
    System::Call 'rstrtmgr::RmEndSession(i $Closing) i .r0'
    StrCpy $Closing ""
  end:
  FunctionEnd

  Function ${un}AskToClose
    Call ${un}EndClosing
    System::Call 'rstrtmgr::RmStartSession(*i .r1, i 0, w .r2) i .r0'
    StrCmp $0 0 0 end
    StrCpy $Closing $1
    System::Call '*(w "${PROGRAM}") p .r3'
    System::Call 'rstrtmgr::RmRegisterResources(i r1, i 1, p r3, i 0, p 0, i 0, p 0) i .r0'
    StrCmp $0 0 0 close
    System::Call 'rstrtmgr::RmShutdown(i r1, i 0, p 0) i .r0'
  close:
    System::Free $3
  end:
  FunctionEnd

  Function ${un}CloseProgram
  again:
    Call ${un}CanReplace
    Pop $0
    StrCmp $0 1 end
    MessageBox MB_OKCANCEL|MB_ICONINFORMATION "Versewell is running. Choose OK to close it: what is typed in a note is kept." /SD IDOK IDOK ask
    Goto stop
  ask:
    Call ${un}AskToClose
    StrCpy $9 0
  wait:
    Call ${un}CanReplace
    Pop $0
    StrCmp $0 1 end
    Sleep 200
    IntOp $9 $9 + 1
    IntCmp $9 15 0 wait 0
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Versewell is still running. Please close it, then choose Retry." /SD IDCANCEL IDRETRY again
  stop:
    Call ${un}EndClosing
    SetErrorLevel 3
    Quit
  end:
  FunctionEnd
!macroend
!include "${FILES}"
!insertmacro CloseProgram ""
!insertmacro CloseProgram "un."

; Starts the program again if the restart manager has closed it, in the folder that it has asked for.
Function StartAgain
  StrCmp $Closing "" end
  System::Call 'rstrtmgr::RmRestart(i $Closing, i 0, p 0) i .r0'
  StrCmp $0 0 0 +2
  StrCpy $Restarted yes
  Call EndClosing
end:
FunctionEnd

; Sets $0 to the folder of the installed copy that the uninstall entry names, if it still has an uninstaller and is not
; $INSTDIR; otherwise to "". By short names, because a folder may be given by either.
!macro FindOtherCopy un
  Function ${un}FindOtherCopy
    ReadRegStr $0 HKCU "${ENTRY}" "InstallLocation"
    IfFileExists "$0\uninstall.exe" 0 none
    GetFullPathName /SHORT $1 "$0"
    GetFullPathName /SHORT $2 "$INSTDIR"
    StrCmp $1 $2 0 end
  none:
    StrCpy $0 ""
  end:
  FunctionEnd
!macroend
!insertmacro FindOtherCopy ""
!insertmacro FindOtherCopy "un."

; A folder that has notes but no installed copy is that of a copy that was carried there: an installed copy would not show
; them.
Function .onInit
  IfFileExists "$INSTDIR\installed.txt" end
  ReadRegStr $0 HKCU "${ENTRY}" "InstallLocation"
  StrCmp $0 $INSTDIR 0 +2
  StrCpy $INSTDIR "${USUAL_FOLDER}"  ; the installed copy is gone
  IfFileExists "$INSTDIR\*.nmi" refuse
  IfFileExists "$INSTDIR\*.nmd" refuse
  IfFileExists "$INSTDIR\Versewell.INI" refuse end
refuse:
  SetErrorLevel 4
  MessageBox MB_OK|MB_ICONSTOP "This folder has notes or settings of a copy of Versewell that was not installed:$\r$\n$\r$\n$INSTDIR$\r$\n$\r$\nAn installed copy would not show them, so nothing has been changed. Install Versewell into another folder; its first start can take over these notes." /SD IDOK
  Quit
end:
FunctionEnd

; A copy that was installed in another folder would stay there without an entry. Its program must be closed before
; anything is changed.
Function CloseOtherCopy
  Call FindOtherCopy
  StrCmp $0 "" end
  Push $INSTDIR
  StrCpy $INSTDIR $0
  Call CloseProgram
  Call EndClosing
  Pop $INSTDIR
end:
FunctionEnd

; By its own uninstaller, which knows its files. With _?= it is waited for, and does not delete itself at once.
Function RemoveOtherCopy
  Call FindOtherCopy
  StrCmp $0 "" end
  Push $0
  ExecWait '"$0\uninstall.exe" /S _?=$0' $1
  Pop $0
  StrCmp $1 0 0 end
  Delete "$0\uninstall.exe"
  RMDir "$0"
end:
FunctionEnd

Section
  Call CloseOtherCopy
  Call CloseProgram
  ; Pages that a former version had and this one lacks.
  Delete "$INSTDIR\help\*.html"
  Delete "$INSTDIR\help\*.png"
  !insertmacro InstallFiles
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  Call RemoveOtherCopy
  CreateShortcut "${LINK}" "${PROGRAM}"
  ; So that "versewell" can be typed into the Run window and the address field of a folder.
  WriteRegStr HKCU "${APP_PATH}" "" "${PROGRAM}"
  WriteRegStr HKCU "${ENTRY}" "DisplayName" "Versewell"
  WriteRegStr HKCU "${ENTRY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${ENTRY}" "Publisher" "Versewell"
  WriteRegStr HKCU "${ENTRY}" "DisplayIcon" "${PROGRAM},0"
  WriteRegStr HKCU "${ENTRY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${ENTRY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  ; With _?= its exit code tells whether it has removed the program (un.RemoveItself).
  WriteRegStr HKCU "${ENTRY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S _?=$INSTDIR'
  WriteRegDWORD HKCU "${ENTRY}" "EstimatedSize" ${SIZE}
  WriteRegDWORD HKCU "${ENTRY}" "NoModify" 1
  WriteRegDWORD HKCU "${ENTRY}" "NoRepair" 1
  Call StartAgain
SectionEnd

; A file that runs cannot delete itself. By itself, an uninstaller of NSIS does all its work in a copy, and its exit code
; is lost; with _?= it works in place, and only this is left to a copy, which waits for its end.
Function un.RemoveItself
  StrCmp $EXEDIR $INSTDIR 0 copy
  Exec '"$INSTDIR\uninstall.exe" /S /itself'
  Return
copy:
  StrCpy $9 0
again:
  ClearErrors
  Delete "$INSTDIR\uninstall.exe"
  IfErrors 0 gone
  Sleep 100
  IntOp $9 $9 + 1
  IntCmp $9 100 0 again 0
gone:
  RMDir "$INSTDIR"
FunctionEnd

; Removes what was installed, file by file. Notes and settings are in %APPDATA%\Versewell and stay, and so does anything
; else that someone has put beside the program.
Section "Uninstall"
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/itself" $1
  IfErrors all
  SetOutPath "$TEMP"
  IfFileExists "${PROGRAM}" +2  ; it has been installed again meanwhile
  Call un.RemoveItself
  Return
all:
  Call un.CloseProgram
  Call un.EndClosing
  ; The taskbar's list of verses. The system lets only the program itself remove it.
  ExecWait '"${PROGRAM}" --remove-list'
  !insertmacro RemoveFiles
  ; They may be those of a copy in another folder by now.
  Call un.FindOtherCopy
  StrCmp $0 "" 0 +4
  Delete "${LINK}"
  DeleteRegKey HKCU "${APP_PATH}"
  DeleteRegKey HKCU "${ENTRY}"
  SetOutPath "$TEMP"
  Call un.RemoveItself
SectionEnd
