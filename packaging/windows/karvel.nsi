; Karvel's setup program.
;
; Made by make-setup, which gives:
;   VERSION    three numbers
;   SOURCE     the directory with the tree as it is to lie at C:\programmi\Karvel
;   LISTS      the directory with the lists that make-setup wrote: program-files.nsh,
;              user-files.nsh, directories.nsh and elenco.txt
;   OUTPUT     the setup program to write
;   SIZE_KB    what the installed tree takes
;   ICON       the icon
;   PICTURE    the picture beside the first and the last page
;   LICENSE    the text of the licence
;
; Exit codes: 0 all well, 1 left by the user, 2 nothing or not all could be done.

Unicode true
Target amd64-unicode
ManifestDPIAware true
ManifestSupportedOS Win10
; Administrators install for everybody; who has no such rights is not asked for them, and gets
; the entries of the menu and the list of programs for himself alone.
RequestExecutionLevel highest
SetCompressor /SOLID lzma
; Without the times of the source files the same tree always makes the same setup program.
SetDateSave off
CRCCheck force

!include LogicLib.nsh
!include MUI2.nsh
!include FileFunc.nsh

; Every path inside the program and its files is absolute: the place is fixed.
!define ROOT "C:\programmi\Karvel"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Karvel"
!define LIST "elenco.txt"
!define UNINSTALLER "disinstalla.exe"
!define NAME "Karvel - Dizionario geroglifico-italiano"

Name "Karvel"
Caption "Installazione di Karvel ${VERSION}"
UninstallCaption "Disinstallazione di Karvel"
BrandingText "Karvel ${VERSION}"
OutFile "${OUTPUT}"
InstallDir "${ROOT}"
ShowInstDetails nevershow
ShowUninstDetails nevershow

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey /LANG=1040 ProductName "Karvel"
VIAddVersionKey /LANG=1040 ProductVersion "${VERSION}"
VIAddVersionKey /LANG=1040 CompanyName "Karvel"
VIAddVersionKey /LANG=1040 FileDescription "Installazione di Karvel"
VIAddVersionKey /LANG=1040 FileVersion "${VERSION}"
VIAddVersionKey /LANG=1040 LegalCopyright "2026 Progetto Karvel, GPL-3.0-or-later"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PICTURE}"
!define MUI_WELCOMEFINISHPAGE_BITMAP_STRETCH AspectFitHeight

!define MUI_WELCOMEPAGE_TITLE "Benvenuti in Karvel ${VERSION}"
!define MUI_WELCOMEPAGE_TEXT "Karvel è un dizionario tra i segni geroglifici egizi e l'italiano.$\r$\n$\r$\nIl programma viene installato nella sola cartella in cui può funzionare:$\r$\n${ROOT}$\r$\n$\r$\nSe la cartella contiene già un dizionario, impostazioni, preferiti o schede, questi file restano come sono.$\r$\n$\r$\nPremere Avanti per continuare."
; Someone who only uses the program need not accept the licence: the page shows it, its button is "Avanti".
!define MUI_LICENSEPAGE_TEXT_TOP "Karvel è software libero, con la licenza GNU GPL versione 3 o successiva."
!define MUI_LICENSEPAGE_TEXT_BOTTOM "Per usare il programma non occorre accettarla: dice che cosa può fare chi lo copia o lo modifica. I dati hanno licenze proprie (CREDITS.md e licenze, nella cartella di Karvel). Non c'è alcuna garanzia."
!define MUI_LICENSEPAGE_BUTTON "&Avanti >"
!define MUI_FINISHPAGE_TITLE "Karvel è installato"
!define MUI_FINISHPAGE_TEXT "Karvel si avvia dal menu Start o dal collegamento sul desktop."
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_TEXT "Avvia Karvel"
!define MUI_FINISHPAGE_RUN_FUNCTION StartProgram
!define MUI_UNCONFIRMPAGE_TEXT_TOP "Karvel verrà tolto da questo computer. I file modificati o aggiunti dall'utente (dizionario, impostazioni, preferiti, schede) non vengono toccati."

!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_LICENSE "${LICENSE}"
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "Italian"

; Shows an error box (never in silent mode), sets the exit code and leaves.
!macro Fail text
    SetErrorLevel 2
    MessageBox MB_OK|MB_ICONSTOP "${text}" /SD IDOK
    Abort
!macroend

; A file that belongs to the user once it is there. Written under another name first: a full disk
; must not leave half a dictionary, which the next installation would take for the user's own.
!macro UserFile directory name from
    ${IfNot} ${FileExists} "${ROOT}\${directory}\${name}"
        SetOutPath "${ROOT}\${directory}"
        File "/oname=${name}.nuovo" "${SOURCE}/${from}"
        Rename "${ROOT}\${directory}\${name}.nuovo" "${ROOT}\${directory}\${name}"
    ${EndIf}
!macroend

; For everybody or for this user, as far as the rights go. The setup program and the
; uninstaller must come to the same answer.
!macro DefineChooseScope un
Function ${un}ChooseScope
    Push $0
    UserInfo::GetAccountType
    Pop $0
    ${If} $0 == "Admin"
        SetShellVarContext all
    ${Else}
        SetShellVarContext current
    ${EndIf}
    Pop $0
FunctionEnd
!macroend
!insertmacro DefineChooseScope ""
!insertmacro DefineChooseScope "un."

; A program that is running cannot be replaced or removed; its file refuses to be written.
!macro DefineWaitForProgram un
Function ${un}WaitForProgram
    Push $0
    Push $1
    ${For} $1 1 2
        again:
        ${If} $1 == 1
            StrCpy $0 "${ROOT}\karvel.exe"
        ${Else}
            StrCpy $0 "${ROOT}\karvel-cli.exe"
        ${EndIf}
        ${If} ${FileExists} $0
            ClearErrors
            FileOpen $0 $0 a
            ${If} ${Errors}
                SetErrorLevel 2
                MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Karvel è aperto, oppure i suoi file non possono essere modificati da questo utente.$\r$\n$\r$\nChiudere Karvel e premere Riprova." /SD IDCANCEL IDRETRY again
                Abort
            ${EndIf}
            FileClose $0
        ${EndIf}
    ${Next}
    SetErrorLevel 0
    Pop $1
    Pop $0
FunctionEnd
!macroend

; The SHA-256 of the file whose path is on the stack, in small hexadecimal digits; empty when
; the file cannot be read. Windows' own library computes it, over the file mapped into memory.
!macro DefineFileHash un
Function ${un}FileHash
    Exch $0
    Push $1
    Push $2
    Push $3
    Push $4
    Push $5
    StrCpy $5 ""
    ; GENERIC_READ, shared reading, OPEN_EXISTING.
    System::Call 'kernel32::CreateFileW(w r0, i 0x80000000, i 1, p 0, i 3, i 0, p 0) p .r1'
    ${If} $1 != -1
        System::Call 'kernel32::GetFileSize(p r1, p 0) i .r2'
        StrCpy $3 0
        StrCpy $4 0
        ${If} $2 <> 0
            ; PAGE_READONLY, FILE_MAP_READ. An empty file cannot be mapped, nor need be.
            System::Call 'kernel32::CreateFileMappingW(p r1, p 0, i 2, i 0, i 0, p 0) p .r3'
            System::Call 'kernel32::MapViewOfFile(p r3, i 4, i 0, i 0, p 0) p .r4'
        ${EndIf}
        ${If} $2 == 0
        ${OrIf} $4 P<> 0
            System::Alloc 32
            Pop $0
            ; 0x41: the handle that stands for SHA-256.
            System::Call 'bcrypt::BCryptHash(p 0x41, p 0, i 0, p r4, i r2, p r0, i 32) i .r5'
            ${If} $5 == 0
                StrCpy $5 ""
                Push $6
                Push $7
                ${For} $6 0 31
                    IntPtrOp $7 $0 + $6
                    System::Call '*$7(&i1 .r7)'
                    IntOp $7 $7 & 255
                    IntFmt $7 "%02x" $7
                    StrCpy $5 "$5$7"
                ${Next}
                Pop $7
                Pop $6
            ${Else}
                StrCpy $5 ""
            ${EndIf}
            System::Free $0
        ${EndIf}
        ${If} $4 P<> 0
            System::Call 'kernel32::UnmapViewOfFile(p r4)'
        ${EndIf}
        ${If} $3 P<> 0
            System::Call 'kernel32::CloseHandle(p r3)'
        ${EndIf}
        System::Call 'kernel32::CloseHandle(p r1)'
    ${EndIf}
    StrCpy $0 $5
    Pop $5
    Pop $4
    Pop $3
    Pop $2
    Pop $1
    Exch $0
FunctionEnd
!macroend

; Removes what an installation put there and nobody changed since: each file of the list whose
; contents are still those of the list, and each directory that is empty then. Lines of the
; list: 64 digits of SHA-256, a blank, the path below the root; or 64 times "-" for a directory,
; the inner ones before the outer ones.
!macro DefineRemoveUnchanged un
Function ${un}RemoveUnchanged
    Push $0
    Push $1
    Push $2
    Push $3
    ClearErrors
    FileOpen $0 "${ROOT}\${LIST}" r
    ${IfNot} ${Errors}
        ${Do}
            ClearErrors
            FileRead $0 $1
            ${If} ${Errors}
                ${ExitDo}
            ${EndIf}
            StrCpy $2 $1 64
            StrCpy $1 $1 "" 65
            Push $1
            Call ${un}TrimLineEnd
            Pop $1
            ; A list that somebody edited must not lead out of the root.
            Push $1
            Call ${un}ClimbsOut
            Pop $3
            ${If} $1 == ""
            ${OrIf} $3 == 1
                ${Continue}
            ${EndIf}
            ${If} $2 == "----------------------------------------------------------------"
                RMDir "${ROOT}\$1"
            ${ElseIf} ${FileExists} "${ROOT}\$1"
                Push "${ROOT}\$1"
                Call ${un}FileHash
                Pop $3
                ${If} $3 == $2
                    Delete "${ROOT}\$1"
                ${EndIf}
            ${EndIf}
        ${Loop}
        FileClose $0
    ${EndIf}
    Pop $3
    Pop $2
    Pop $1
    Pop $0
FunctionEnd

Function ${un}TrimLineEnd
    Exch $0
    Push $1
    ${Do}
        StrCpy $1 $0 1 -1
        ${If} $1 != "$\r"
        ${AndIf} $1 != "$\n"
            ${ExitDo}
        ${EndIf}
        StrCpy $0 $0 -1
    ${Loop}
    Pop $1
    Exch $0
FunctionEnd

; 1 when the path on the stack has ".." or a colon in it, else 0.
Function ${un}ClimbsOut
    Exch $0
    Push $1
    Push $2
    StrCpy $2 0
    ${Do}
        StrCpy $1 $0 2
        ${If} $1 == ""
            ${ExitDo}
        ${ElseIf} $1 == ".."
            StrCpy $2 1
        ${EndIf}
        StrCpy $1 $0 1
        ${If} $1 == ":"
            StrCpy $2 1
        ${EndIf}
        StrCpy $0 $0 "" 1
    ${Loop}
    StrCpy $0 $2
    Pop $2
    Pop $1
    Exch $0
FunctionEnd
!macroend

!insertmacro DefineWaitForProgram ""
!insertmacro DefineWaitForProgram "un."
!insertmacro DefineFileHash ""
!insertmacro DefineFileHash "un."
!insertmacro DefineRemoveUnchanged ""
!insertmacro DefineRemoveUnchanged "un."

Function .onInit
    Call ChooseScope
    ; /D= has no say: the program would not find its files.
    StrCpy $INSTDIR "${ROOT}"
FunctionEnd

Function un.onInit
    Call un.ChooseScope
FunctionEnd

; The program looks for its directory under this very name, in this case of letters.
Function CorrectCase
    Push $0
    Push $1
    FindFirst $0 $1 "${ROOT}"
    ${If} $1 != ""
    ${AndIf} $1 S!= "Karvel"
        Rename "${ROOT}" "C:\programmi\Karvel.rinomina"
        Rename "C:\programmi\Karvel.rinomina" "${ROOT}"
    ${EndIf}
    FindClose $0
    Pop $1
    Pop $0
FunctionEnd

Function StartProgram
    ; Through the desktop, so that the program does not inherit the rights of an administrator.
    Exec '"$WINDIR\explorer.exe" "${ROOT}\karvel.exe"'
FunctionEnd

Section "Karvel"
    Call WaitForProgram
    Call CorrectCase
    ; An older version goes first, so that nothing of it stays behind which the new one lacks.
    ; A dictionary or settings that the user never touched make room for the new ones.
    Call RemoveUnchanged

    ClearErrors
    !include "${LISTS}/directories.nsh"
    SetOverwrite on
    !include "${LISTS}/program-files.nsh"
    !include "${LISTS}/user-files.nsh"
    SetOutPath "${ROOT}"
    File "/oname=${LIST}" "${LISTS}/elenco.txt"
    WriteUninstaller "${ROOT}\${UNINSTALLER}"
    ${If} ${Errors}
        !insertmacro Fail "Non è stato possibile scrivere tutti i file di Karvel nella cartella ${ROOT}.$\r$\n$\r$\nControllare lo spazio sul disco C: e i permessi della cartella, poi ripetere l'installazione. I file modificati dall'utente non sono stati toccati."
    ${EndIf}

    ; Installed by an administrator, used by everybody: everybody adds words and cards.
    UserInfo::GetAccountType
    Pop $0
    ${If} $0 == "Admin"
        nsExec::Exec '"$SYSDIR\icacls.exe" "${ROOT}" /grant *S-1-5-32-545:(OI)(CI)M /Q'
        Pop $0
    ${EndIf}

    CreateShortCut "$SMPROGRAMS\Karvel.lnk" "${ROOT}\karvel.exe" "" "${ROOT}\karvel.exe" 0 \
        SW_SHOWNORMAL "" "${NAME}"
    CreateShortCut "$DESKTOP\Karvel.lnk" "${ROOT}\karvel.exe" "" "${ROOT}\karvel.exe" 0 \
        SW_SHOWNORMAL "" "${NAME}"

    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "${NAME}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "${ROOT}\karvel.exe"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "Karvel"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "${ROOT}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"${ROOT}\${UNINSTALLER}"'
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"${ROOT}\${UNINSTALLER}" /S'
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" ${SIZE_KB}
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section "Uninstall"
    Call un.WaitForProgram
    ; A working directory inside the root would keep it from being removed.
    SetOutPath "$TEMP"
    Call un.RemoveUnchanged
    Delete "${ROOT}\${LIST}"
    Delete "${ROOT}\${UNINSTALLER}"
    ; The program's own scratch files: the state before the last sign, the edition it has asked about.
    Delete "${ROOT}\Undo.dat"
    Delete "${ROOT}\settaggi\edizione.txt"
    RMDir "${ROOT}\settaggi"
    RMDir "${ROOT}"
    RMDir "C:\programmi"

    Delete "$SMPROGRAMS\Karvel.lnk"
    Delete "$DESKTOP\Karvel.lnk"
    DeleteRegKey SHCTX "${UNINSTALL_KEY}"

    ${If} ${FileExists} "${ROOT}\*.*"
        MessageBox MB_OK|MB_ICONINFORMATION "Karvel è stato disinstallato.$\r$\n$\r$\nNella cartella ${ROOT} restano i file modificati o aggiunti dall'utente (dizionario, impostazioni, preferiti, schede): non sono stati toccati, e una nuova installazione li ritrova. Se non servono più, si può eliminare la cartella." /SD IDOK
    ${EndIf}
SectionEnd
