; The installer, for one user and without administrator. ./dist gives:
;   VERSION, OUTPUT, FILES (lists what is installed and removed), SIZE (kilobytes), ICON
Target amd64-unicode
Name "Versewell ${VERSION}"
OutFile "${OUTPUT}"
RequestExecutionLevel user
SetCompressor /SOLID lzma
SetDateSave off
CRCCheck on
ManifestDPIAware true
ManifestSupportedOS all
Icon "${ICON}"
UninstallIcon "${ICON}"
BrandingText " "

; Not to be chosen: a folder with someone's notes would become the program's folder.
InstallDir "$LOCALAPPDATA\Programs\Versewell"

VIProductVersion "${VERSION}.0"
VIAddVersionKey "CompanyName" "Versewell"
VIAddVersionKey "FileDescription" "Versewell: installation"
VIAddVersionKey "FileVersion" "${VERSION}.0"
VIAddVersionKey "LegalCopyright" ""
VIAddVersionKey "ProductName" "Versewell97"
VIAddVersionKey "ProductVersion" "${VERSION}"

!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Versewell"
!define LINK "$SMPROGRAMS\Versewell.lnk"
!define PROGRAM "$INSTDIR\versewell.exe"
!define APP_PATH "Software\Microsoft\Windows\CurrentVersion\App Paths\versewell.exe"
!define TASKBAR_NAME "Versewell.Versewell"  ; as the program names itself: app/jump_list_win32.cpp

; The session of the restart manager that has closed the program; "" for none.
Var Closing

Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

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
  Call EndClosing
end:
FunctionEnd

; Gives the entry of the start menu the name that the windows of the program have, so that the taskbar shows one button
; for both, with one list of verses. Where the system cannot do that, the entry stays as it is.
Function NameLink
  System::Call 'ole32::CoCreateInstance(g "{00021401-0000-0000-C000-000000000046}", p 0, i 1, g "{000214F9-0000-0000-C000-000000000046}", *p .r1) i .r0'
  StrCmp $0 0 0 end  ; $1: IShellLink
  System::Call '$1->0(g "{0000010B-0000-0000-C000-000000000046}", *p .r2) i .r0'
  StrCmp $0 0 0 free1  ; $2: IPersistFile
  System::Call '$1->0(g "{886D8EEB-8CF2-4446-8D02-CDBA1DBDCF99}", *p .r3) i .r0'
  StrCmp $0 0 0 free2  ; $3: IPropertyStore
  System::Call '$2->5(w "${LINK}", i 2) i .r0'  ; Load
  StrCmp $0 0 0 free3
  System::Call '*(g "{9F4C2855-9F79-4B39-A8D0-E1D42DE1D5F3}", i 5) p .r4'  ; System.AppUserModel.ID
  System::Call '*(&w32 "${TASKBAR_NAME}") p .r5'
  System::Call '*(&i2 31, &i2 0, &i2 0, &i2 0, p r5, p 0) p .r6'  ; VT_LPWSTR
  System::Call '$3->6(p r4, p r6) i .r0'  ; SetValue
  StrCmp $0 0 0 free4
  System::Call '$3->7() i .r0'  ; Commit
  StrCmp $0 0 0 free4
  System::Call '$2->6(w "${LINK}", i 1) i .r0'  ; Save
free4:
  System::Free $6
  System::Free $5
  System::Free $4
free3:
  System::Call '$3->2()'
free2:
  System::Call '$2->2()'
free1:
  System::Call '$1->2()'
end:
FunctionEnd

; Takes the taskbar's list of verses away.
Function un.DeleteList
  System::Call 'ole32::CoCreateInstance(g "{77F10CF0-3DB5-4966-B520-B7C54FD35ED6}", p 0, i 1, g "{6332DEBF-87B5-4670-90C0-5E57B408A49E}", *p .r1) i .r0'
  StrCmp $0 0 0 end  ; $1: ICustomDestinationList
  System::Call '$1->10(w "${TASKBAR_NAME}") i .r0'  ; DeleteList
  System::Call '$1->2()'
end:
FunctionEnd

Section
  Call CloseProgram
  ; Pages that a former version had and this one lacks.
  Delete "$INSTDIR\help\*.html"
  Delete "$INSTDIR\help\*.png"
  !insertmacro InstallFiles
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "${LINK}" "${PROGRAM}"
  Call NameLink
  ; So that "versewell" can be typed into the Run window and the address field of a folder.
  WriteRegStr HKCU "${APP_PATH}" "" "${PROGRAM}"
  WriteRegStr HKCU "${ENTRY}" "DisplayName" "Versewell"
  WriteRegStr HKCU "${ENTRY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${ENTRY}" "Publisher" "Versewell"
  WriteRegStr HKCU "${ENTRY}" "DisplayIcon" "${PROGRAM},0"
  WriteRegStr HKCU "${ENTRY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${ENTRY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${ENTRY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${ENTRY}" "EstimatedSize" ${SIZE}
  WriteRegDWORD HKCU "${ENTRY}" "NoModify" 1
  WriteRegDWORD HKCU "${ENTRY}" "NoRepair" 1
  Call StartAgain
SectionEnd

; Removes what was installed, file by file. Notes and settings are in %APPDATA%\Versewell and stay, and so does anything
; else that someone has put beside the program.
Section "Uninstall"
  Call un.CloseProgram
  Call un.EndClosing
  !insertmacro RemoveFiles
  Delete "${LINK}"
  Call un.DeleteList
  DeleteRegKey HKCU "${APP_PATH}"
  DeleteRegKey HKCU "${ENTRY}"
  Delete "$INSTDIR\uninstall.exe"
  SetOutPath "$TEMP"
  RMDir "$INSTDIR"
SectionEnd
