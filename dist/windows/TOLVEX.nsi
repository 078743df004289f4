; The installer of the Windows edition. dist/make.sh gives VERSION, OUT (the installer to write) and FILES, a script that
; it makes of the staged tree: the macros InstallCommon, Install64, Install32 and DeleteAll.
;
;   setup.exe              for the machine, or for this user where the rights of an administrator are missing
;   setup.exe /usuario     for this user
;   setup.exe /S           asks and shows nothing
;   setup.exe /D=FOLDER    another folder; the last option, without quotes
;
; What it did is told in its window and in %TEMP%\tolvex-instalacion.txt. Exit code 0: done; 1: cancelled by the user;
; 2: not done, with the reason.
Unicode true
!include MUI2.nsh
!include LogicLib.nsh
!include x64.nsh
!include FileFunc.nsh
!include "${FILES}"

Name "TOLVEX ${VERSION}"
OutFile "${OUT}"
RequestExecutionLevel highest
SetCompressor /SOLID lzma
SetDateSave off
ManifestDPIAware true
ShowInstDetails show
ShowUninstDetails show
BrandingText "TOLVEX ${VERSION}"
InstallDir ""

!define KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\TOLVEX"
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_NOAUTOCLOSE
!define MUI_FINISHPAGE_RUN "$INSTDIR\bin32\TolvexConsola.exe"
!define MUI_FINISHPAGE_RUN_TEXT "Abrir la consola para integradores"
!define MUI_FINISHPAGE_RUN_NOTCHECKED
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_LICENSE "${LICENSE}"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "SpanishInternational"

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey /LANG=${LANG_SPANISHINTERNATIONAL} ProductName "TOLVEX"
VIAddVersionKey /LANG=${LANG_SPANISHINTERNATIONAL} ProductVersion "${VERSION}"
VIAddVersionKey /LANG=${LANG_SPANISHINTERNATIONAL} FileVersion "${VERSION}.0"
VIAddVersionKey /LANG=${LANG_SPANISHINTERNATIONAL} FileDescription "Instalador de TOLVEX"
VIAddVersionKey /LANG=${LANG_SPANISHINTERNATIONAL} CompanyName "TOLVEX"
VIAddVersionKey /LANG=${LANG_SPANISHINTERNATIONAL} LegalCopyright "© 2026 Los autores de TOLVEX, licencia MIT"

Var ForUser ; 1, or empty for the machine
Var Log

; --- what both the installer and the uninstaller do --------------------------------------------------------------------

!macro Common UN
; The text on the stack, in the window and in the log.
Function ${UN}Tell
    Exch $0
    DetailPrint "$0"
    FileOpen $Log "$TEMP\tolvex-instalacion.txt" a
    FileSeek $Log 0 END
    FileWriteUTF16LE /BOM $Log "$0$\r$\n"
    FileClose $Log
    Pop $0
FunctionEnd

; Ends the run with the reason on the stack.
Function ${UN}Fail
    Exch $0
    Push "$0"
    Call ${UN}Tell
    MessageBox MB_OK|MB_ICONSTOP "$0" /SD IDOK
    SetErrorLevel 2
    Abort "$0"
FunctionEnd

; regsvr32 with the options on the stack, for the component of the bits below them. Leaves its exit code.
Function ${UN}RunRegsvr32
    Exch $0 ; options
    Exch
    Exch $1 ; bits
    StrCpy $2 "$SYSDIR\regsvr32.exe" ; of 32 bits for this program
    ${If} $1 == 64
        StrCpy $2 "$WINDIR\Sysnative\regsvr32.exe"
    ${EndIf}
    ${If} $ForUser == 1
        StrCpy $0 "$0 /n /i:user"
    ${EndIf}
    ClearErrors
    ExecWait '"$2" /s $0 "$INSTDIR\bin$1\TOLVEX.dll"' $2
    ${If} ${Errors}
        StrCpy $2 "no se pudo ejecutar regsvr32"
    ${EndIf}
    Pop $1
    Pop $0
    Push $2
FunctionEnd

Function ${UN}UseScope
    ${If} ${RunningX64}
        SetRegView 64
    ${EndIf}
    ${If} $ForUser == 1
        SetShellVarContext current
    ${Else}
        SetShellVarContext all
    ${EndIf}
FunctionEnd
!macroend
!insertmacro Common ""
!insertmacro Common "un."

!macro Tell UN TEXT
    Push "${TEXT}"
    Call ${UN}Tell
!macroend

!macro Fail UN TEXT
    Push "${TEXT}"
    Call ${UN}Fail
!macroend

; --- installing --------------------------------------------------------------------------------------------------------

Function .onInit
    Delete "$TEMP\tolvex-instalacion.txt"
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/usuario" $1
    ${IfNot} ${Errors}
        StrCpy $ForUser 1
    ${EndIf}
    UserInfo::GetAccountType
    Pop $0
    ${If} $0 != "Admin"
        StrCpy $ForUser 1
    ${EndIf}
    Call UseScope
    ${If} $INSTDIR == ""
        Call FindFolder
    ${EndIf}
FunctionEnd

; Where an earlier version is, or where programs belong.
Function FindFolder
    ReadRegStr $INSTDIR SHCTX "${KEY}" InstallLocation
    ${If} $INSTDIR != ""
        Return
    ${EndIf}
    ${If} $ForUser == 1
        StrCpy $INSTDIR "$LOCALAPPDATA\Programs\TOLVEX"
    ${ElseIf} ${RunningX64}
        StrCpy $INSTDIR "$PROGRAMFILES64\TOLVEX"
    ${Else}
        StrCpy $INSTDIR "$PROGRAMFILES\TOLVEX"
    ${EndIf}
FunctionEnd

; A component that a program has loaded cannot be replaced: nothing is touched then.
!macro RequireUnused BITS
    ${If} ${FileExists} "$INSTDIR\bin${BITS}\TOLVEX.dll"
        ClearErrors
        FileOpen $0 "$INSTDIR\bin${BITS}\TOLVEX.dll" a
        ${If} ${Errors}
            !insertmacro Fail "" "Un programa está usando $INSTDIR\bin${BITS}\TOLVEX.dll. Ciérrelo e instale de nuevo; no se cambió nada."
        ${EndIf}
        FileClose $0
    ${EndIf}
!macroend

!macro Register BITS
    Push ${BITS}
    Push ""
    Call RunRegsvr32
    Pop $0
    ${If} $0 != 0
        !insertmacro Fail "" "No se pudo registrar $INSTDIR\bin${BITS}\TOLVEX.dll (código $0). Los archivos quedan instalados; regístrelo a mano con regsvr32 para ver la causa."
    ${EndIf}
    !insertmacro Tell "" "Registrado: $INSTDIR\bin${BITS}\TOLVEX.dll"
!macroend

Section
    !insertmacro RequireUnused 64
    !insertmacro RequireUnused 32
    ${If} ${FileExists} "$INSTDIR\desinstalar.exe"
        !insertmacro Tell "" "Se quita la versión anterior; los datos quedan."
        ExecWait '"$INSTDIR\desinstalar.exe" /S /actualiza _?=$INSTDIR'
    ${EndIf}
    ClearErrors
    SetOverwrite on
    !insertmacro InstallCommon
    !insertmacro Install32
    ${If} ${RunningX64}
        !insertmacro Install64
    ${EndIf}
    WriteUninstaller "$INSTDIR\desinstalar.exe"
    ${If} ${Errors}
        !insertmacro Fail "" "No se pudo escribir en $INSTDIR. Revise los permisos y el espacio del disco, o elija otra carpeta."
    ${EndIf}
    !insertmacro Register 32
    ${If} ${RunningX64}
        !insertmacro Register 64
    ${EndIf}
    Call AddShortcuts
    Call AddToListOfPrograms
    ${If} $ForUser == 1
        !insertmacro Tell "" "TOLVEX ${VERSION} quedó instalado para este usuario en $INSTDIR"
    ${Else}
        !insertmacro Tell "" "TOLVEX ${VERSION} quedó instalado para todos los usuarios en $INSTDIR"
    ${EndIf}
SectionEnd

Function AddShortcuts
    StrCpy $0 "$INSTDIR\bin32"
    ${If} ${RunningX64}
        StrCpy $0 "$INSTDIR\bin64"
    ${EndIf}
    CreateDirectory "$SMPROGRAMS\TOLVEX"
    CreateShortcut "$SMPROGRAMS\TOLVEX\Consola para integradores.lnk" "$0\TolvexConsola.exe"
    CreateShortcut "$SMPROGRAMS\TOLVEX\Línea de órdenes.lnk" "$SYSDIR\cmd.exe" '/k "set PATH=$0;%PATH%&& tolvex --help"'
    CreateShortcut "$SMPROGRAMS\TOLVEX\Crear la empresa de demostración.lnk" "$INSTDIR\examples\demostracion.cmd"
    CreateShortcut "$SMPROGRAMS\TOLVEX\Documentos y ejemplos.lnk" "$INSTDIR"
FunctionEnd

Function AddToListOfPrograms
    WriteRegStr SHCTX "${KEY}" DisplayName "TOLVEX"
    WriteRegStr SHCTX "${KEY}" DisplayVersion "${VERSION}"
    WriteRegStr SHCTX "${KEY}" Publisher "TOLVEX"
    WriteRegStr SHCTX "${KEY}" DisplayIcon "$INSTDIR\bin32\TolvexConsola.exe"
    WriteRegStr SHCTX "${KEY}" InstallLocation "$INSTDIR"
    WriteRegStr SHCTX "${KEY}" UninstallString '"$INSTDIR\desinstalar.exe"'
    WriteRegStr SHCTX "${KEY}" QuietUninstallString '"$INSTDIR\desinstalar.exe" /S'
    WriteRegDWORD SHCTX "${KEY}" NoModify 1
    WriteRegDWORD SHCTX "${KEY}" NoRepair 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD SHCTX "${KEY}" EstimatedSize $0
FunctionEnd

; --- uninstalling ------------------------------------------------------------------------------------------------------

Function un.onInit
    ; For whom it was installed: the place of its entry tells. A path can be written in more than one way.
    ${If} ${RunningX64}
        SetRegView 64
    ${EndIf}
    ReadRegStr $0 HKCU "${KEY}" InstallLocation
    ReadRegStr $1 HKLM "${KEY}" InstallLocation
    ${If} $0 != ""
    ${AndIf} $1 != $INSTDIR
        StrCpy $ForUser 1
    ${EndIf}
    Call un.UseScope
FunctionEnd

!macro Unregister BITS
    ${If} ${FileExists} "$INSTDIR\bin${BITS}\TOLVEX.dll"
        Push ${BITS}
        Push "/u"
        Call un.RunRegsvr32
        Pop $0
        ${If} $0 != 0
            !insertmacro Fail "un." "No se pudo quitar el registro de $INSTDIR\bin${BITS}\TOLVEX.dll (código $0). ¿Con permisos de administrador? No se borró nada."
        ${EndIf}
    ${EndIf}
!macroend

Section un.TOLVEX
    !insertmacro Unregister 64
    !insertmacro Unregister 32
    !insertmacro DeleteAll
    Delete "$SMPROGRAMS\TOLVEX\*.lnk"
    RMDir "$SMPROGRAMS\TOLVEX"
    DeleteRegKey SHCTX "${KEY}"
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/actualiza" $1
    ${If} ${Errors} ; for good: what the console remembers goes too
        DeleteRegKey HKCU "Software\TOLVEX\Consola"
        DeleteRegKey /ifempty HKCU "Software\TOLVEX"
    ${EndIf}
    Delete "$INSTDIR\desinstalar.exe"
    RMDir "$INSTDIR" ; only if nothing else lies there
    !insertmacro Tell "un." "TOLVEX ${VERSION} se quitó de $INSTDIR; las bases de datos y las carpetas de trabajo no se tocan."
SectionEnd
