; What the user sees of the installer: a page before and one behind the installation, and a question before the program is
; removed. ./dist gives:
;   ICON, SIDE (the pictures beside the two pages for 96, 144 and 192 dpi are SIDE96.bmp, SIDE144.bmp and SIDE192.bmp)
!include MUI2.nsh

; Whether the restart manager has started the program again.
Var Restarted

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${SIDE}96.bmp"

!define MUI_WELCOMEPAGE_TITLE "Versewell ${VERSION}"
!define MUI_WELCOMEPAGE_TEXT "The Authorized Version of the Bible, to read and to search, with notes on its verses.$\r$\n$\r$\nIt is installed for you, and needs no administrator. If an older version is there, it is replaced; your notes and settings stay as they are.$\r$\n$\r$\nFolder:$\r$\n$INSTDIR"
!define MUI_PAGE_CUSTOMFUNCTION_PRE TakePicture
!define MUI_PAGE_CUSTOMFUNCTION_SHOW NameInstallButton
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_TITLE "Versewell ${VERSION} is installed"
!define MUI_FINISHPAGE_TEXT "You find it in the start menu."
!define MUI_FINISHPAGE_RUN "${PROGRAM}"
!define MUI_FINISHPAGE_RUN_TEXT "&Start Versewell"
!define MUI_PAGE_CUSTOMFUNCTION_SHOW OfferStart
!insertmacro MUI_PAGE_FINISH

!define MUI_UNCONFIRMPAGE_TEXT_TOP "Versewell is removed from this folder. Your notes and settings stay, in$\r$\n$APPDATA\Versewell"
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; The picture is stretched to the size of the page, so it is taken from the drawing that is nearest to it.
Function TakePicture
  System::Call 'user32::GetDC(p 0) p .r0'
  System::Call 'gdi32::GetDeviceCaps(p r0, i 88) i .r1'  ; LOGPIXELSX
  System::Call 'user32::ReleaseDC(p 0, p r0)'
  IntCmp $1 144 0 end 0
  File "/oname=$PLUGINSDIR\modern-wizard.bmp" "${SIDE}144.bmp"
  IntCmp $1 192 0 end 0
  File "/oname=$PLUGINSDIR\modern-wizard.bmp" "${SIDE}192.bmp"
end:
FunctionEnd

; The next page begins at once.
Function NameInstallButton
  GetDlgItem $0 $HWNDPARENT 1
  SendMessage $0 ${WM_SETTEXT} 0 "STR:&Install"
FunctionEnd

Function OfferStart
  StrCmp $Restarted "" end
  SendMessage $mui.FinishPage.Run ${BM_SETCHECK} ${BST_UNCHECKED} 0
  ShowWindow $mui.FinishPage.Run ${SW_HIDE}
end:
FunctionEnd
