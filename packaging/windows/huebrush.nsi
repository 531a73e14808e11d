; SPDX-License-Identifier: MPL-2.0
; The setup of the Word add-in, for the current user. It does what the package's install.cmd and
; uninstall.cmd do, by running them.
;
;   makensis -DVERSION=1.0.0 -DFILES=FOLDER -DTARGET=SETUP.exe huebrush.nsi
;
; FOLDER is the unpacked package. The setup is a program of 32 bits, which every Windows runs; with
; -DPROCESSOR=amd64, one of 64 bits. The setup and the program that removes the add-in take /S (no
; windows, no questions); the setup also /NEWER (all commands in newer versions of Word, too), and the
; other one /ALL (palettes and settings are removed as well).

!ifdef PROCESSOR
Target ${PROCESSOR}-unicode
!endif
Unicode true
SetCompressor /SOLID lzma
SetDateSave off
RequestExecutionLevel user
Name "Huebrush"
OutFile "${TARGET}"
; The folder of install.cmd.
InstallDir "$APPDATA\Huebrush"
BrandingText "Huebrush ${VERSION}"

!include FileFunc.nsh
!include LogicLib.nsh
!include MUI2.nsh
!insertmacro GetParameters
!insertmacro GetOptions

!define REMOVAL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Huebrush"

!define MUI_ABORTWARNING
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_LICENSE "${FILES}/LICENSE.txt"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES
; Where the system's language is neither, the first one is shown.
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "Czech"

LangString ADDIN ${LANG_ENGLISH} "The add-in"
LangString ADDIN ${LANG_CZECH} "Doplněk"
LangString NEWER ${LANG_ENGLISH} "All commands in Word newer than 2000"
LangString NEWER ${LANG_CZECH} "Všechny příkazy i ve Wordu novějším než 2000"
LangString PALETTES ${LANG_ENGLISH} "Palettes and settings"
LangString PALETTES ${LANG_CZECH} "Palety a nastavení"
LangString FAILED ${LANG_ENGLISH} "The add-in could not be installed. Close Word, and start the setup again."
LangString FAILED ${LANG_CZECH} "Doplněk nelze nainstalovat. Ukončete Word a spusťte instalaci znovu."
LangString NOT_REMOVED ${LANG_ENGLISH} "The add-in could not be removed. Close Word, and try again."
LangString NOT_REMOVED ${LANG_CZECH} "Doplněk nelze odebrat. Ukončete Word a zkuste to znovu."

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=${LANG_ENGLISH} "ProductName" "Huebrush"
VIAddVersionKey /LANG=${LANG_ENGLISH} "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "FileDescription" "Setup of Huebrush, an add-in for Microsoft Word"
VIAddVersionKey /LANG=${LANG_ENGLISH} "LegalCopyright" "Mozilla Public License 2.0"

Var options

Section "$(ADDIN)" SectionAddIn
  SectionIn RO
  InitPluginsDir
  SetOutPath "$PLUGINSDIR\Huebrush"
  File /r "${FILES}/*.*"
  nsExec::ExecToLog '"$SYSDIR\cmd.exe" /c ""$PLUGINSDIR\Huebrush\install.cmd" $options"'
  Pop $0
  ${If} $0 != 0
    MessageBox MB_OK|MB_ICONSTOP "$(FAILED)" /SD IDOK
    SetErrorLevel 1
    Abort
  ${EndIf}
  SetOutPath "$INSTDIR"
  File "${FILES}/README.txt" "${FILES}/PRECTI.txt" "${FILES}/LICENSE.txt"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr HKCU "${REMOVAL}" "DisplayName" "Huebrush"
  WriteRegStr HKCU "${REMOVAL}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${REMOVAL}" "Publisher" "The Huebrush developers"
  WriteRegStr HKCU "${REMOVAL}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${REMOVAL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${REMOVAL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${REMOVAL}" "NoModify" 1
  WriteRegDWORD HKCU "${REMOVAL}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKCU "${REMOVAL}" "EstimatedSize" $0
SectionEnd

; Chosen by its name alone: the first section reads it before anything is done.
Section /o "$(NEWER)" SectionNewer
SectionEnd

Function .onInit
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/NEWER" $1
  ${IfNot} ${Errors}
    !insertmacro SelectSection ${SectionNewer}
    StrCpy $options "/newer"
  ${EndIf}
FunctionEnd

Function .onSelChange
  StrCpy $options ""
  ${If} ${SectionIsSelected} ${SectionNewer}
    StrCpy $options "/newer"
  ${EndIf}
FunctionEnd

Section "un.$(ADDIN)" RemovedAddIn
  SectionIn RO
  InitPluginsDir
  File "/oname=$PLUGINSDIR\uninstall.cmd" "${FILES}/uninstall.cmd"
  nsExec::ExecToLog '"$SYSDIR\cmd.exe" /c ""$PLUGINSDIR\uninstall.cmd" $options"'
  Pop $0
  ${If} $0 != 0
    MessageBox MB_OK|MB_ICONSTOP "$(NOT_REMOVED)" /SD IDOK
    SetErrorLevel 1
    Abort
  ${EndIf}
  Delete "$INSTDIR\README.txt"
  Delete "$INSTDIR\PRECTI.txt"
  Delete "$INSTDIR\LICENSE.txt"
  Delete "$INSTDIR\uninstall.exe"
  DeleteRegKey HKCU "${REMOVAL}"
  ; Goes only if no palettes are left in it.
  RMDir "$INSTDIR"
SectionEnd

Section /o "un.$(PALETTES)" RemovedPalettes
SectionEnd

Function un.onInit
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/ALL" $1
  ${IfNot} ${Errors}
    !insertmacro SelectSection ${RemovedPalettes}
    StrCpy $options "/all"
  ${EndIf}
FunctionEnd

Function un.onSelChange
  StrCpy $options ""
  ${If} ${SectionIsSelected} ${RemovedPalettes}
    StrCpy $options "/all"
  ${EndIf}
FunctionEnd
