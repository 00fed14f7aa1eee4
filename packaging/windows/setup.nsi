; The installer of Windows programs, compiled by the script "setup". That defines:
;   VERSION   4.0.0
;   BITS      64: both servers and the 64-bit program, for 64-bit Windows. 32: those of 32-bit Windows
;   LISTS     folder of install.nsh and uninstall.nsh, which name each file
;   SIZE      of all files, in kilobytes
;   SIGN      command that signs a file
;   OUTPUT    the installer
;
; Exit codes: 0 done, 1 given up by the user, 2 failed, 3010 done, but old files that are in use go at the next restart.
Unicode true
SetCompressor /SOLID lzma
!if ${BITS} == 64
    Target amd64-unicode
    !define FOLDER x64
!else
    Target x86-unicode
    !define FOLDER x86
!endif
!include LogicLib.nsh
!include WinMessages.nsh
!include x64.nsh

!define UNINSTALL_KEY Software\Microsoft\Windows\CurrentVersion\Uninstall\Vistrel
!define SHORTCUT "$SMPROGRAMS\Vistrel documentation.lnk"
!define DONE_AFTER_RESTART 3010

Name "Vistrel ${VERSION}"
OutFile "${OUTPUT}"
!if ${BITS} == 64
    InstallDir $PROGRAMFILES64\Vistrel
!else
    InstallDir $PROGRAMFILES\Vistrel
!endif
InstallDirRegKey HKLM ${UNINSTALL_KEY} InstallLocation
RequestExecutionLevel admin
ManifestSupportedOS all
ManifestDPIAware true
XPStyle on
ShowInstDetails show
ShowUninstDetails show
!uninstfinalize '"${SIGN}" "%1"' = 0
!finalize '"${SIGN}" "%1"' = 0

VIProductVersion ${VERSION}.0
VIAddVersionKey ProductName Vistrel
VIAddVersionKey CompanyName Vistrel
VIAddVersionKey FileDescription "Installer of Vistrel, for LED message signs"
VIAddVersionKey FileVersion ${VERSION}
VIAddVersionKey ProductVersion ${VERSION}
VIAddVersionKey LegalCopyright ""

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

Var failed ; 1 after a step that did not work

; Reports what did not work, and goes on.
!macro ReportFailure TEXT
    StrCpy $failed 1
    DetailPrint "${TEXT}"
    MessageBox MB_OK|MB_ICONEXCLAMATION "${TEXT}" /SD IDOK
!macroend

!include machine-path.nsh

; Registers a server with the system's program of the same bitness, or with VERB "/u" takes its registration back.
!macro RunRegsvr FOLDER SYSTEM_FOLDER VERB
    ${If} ${FileExists} "${SYSTEM_FOLDER}\regsvr32.exe"
        ExecWait '"${SYSTEM_FOLDER}\regsvr32.exe" /s ${VERB} "$INSTDIR\${FOLDER}\qrtVistrelClasses4.dll"' $0
        ${If} $0 != 0
            !insertmacro ReportFailure "regsvr32 ${VERB} failed for ${FOLDER}\qrtVistrelClasses4.dll (exit code $0)."
        ${EndIf}
    ${Else}
        DetailPrint "This system has no ${SYSTEM_FOLDER}\regsvr32.exe: the server in ${FOLDER} is not registered."
    ${EndIf}
!macroend

!macro RunRegsvrs VERB
    !if ${BITS} == 64
        !insertmacro RunRegsvr x86 "$WINDIR\SysWOW64" "${VERB}"
    !endif
    !insertmacro RunRegsvr ${FOLDER} "$SYSDIR" "${VERB}"
!macroend

; What the installation ends with.
!macro SetExitCode
    ${If} $failed == 1
        SetErrorLevel 2
    ${ElseIf} ${RebootFlag}
        SetErrorLevel ${DONE_AFTER_RESTART}
    ${EndIf}
!macroend

Function .onInit
    SetShellVarContext all
    !if ${BITS} == 32
        ${If} ${RunningX64}
            MessageBox MB_OK|MB_ICONSTOP "This is the installer for 32-bit Windows. Use vistrel-${VERSION}-setup.exe here." /SD IDOK
            SetErrorLevel 2
            Quit
        ${EndIf}
    !endif
FunctionEnd

Function un.onInit
    SetShellVarContext all
FunctionEnd

; Uninstalls the version that is there, whichever it is: only its own uninstaller knows its files.
Function uninstallOther
    ReadRegStr $1 HKLM ${UNINSTALL_KEY} InstallLocation
    ${If} $1 == ""
    ${OrIfNot} ${FileExists} "$1\uninstall.exe"
        Return
    ${EndIf}
    ReadRegStr $2 HKLM ${UNINSTALL_KEY} DisplayVersion
    DetailPrint "Replacing version $2 in $1"
    InitPluginsDir
    CopyFiles /SILENT "$1\uninstall.exe" "$PLUGINSDIR\uninstall-other.exe" ; it could not remove itself while it runs
    ExecWait '"$PLUGINSDIR\uninstall-other.exe" /S _?=$1' $0
    ${If} $0 == ${DONE_AFTER_RESTART}
        DetailPrint "Some files of version $2 are in use. Programs keep them until they are started again."
        SetRebootFlag true
    ${ElseIf} $0 != 0
        !insertmacro ReportFailure "Version $2 could not be uninstalled whole (exit code $0)."
    ${EndIf}
FunctionEnd

Function addToListOfPrograms
    WriteRegStr HKLM ${UNINSTALL_KEY} DisplayName Vistrel
    WriteRegStr HKLM ${UNINSTALL_KEY} DisplayVersion ${VERSION}
    WriteRegStr HKLM ${UNINSTALL_KEY} Publisher Vistrel
    WriteRegStr HKLM ${UNINSTALL_KEY} DisplayIcon '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKLM ${UNINSTALL_KEY} InstallLocation $INSTDIR
    WriteRegStr HKLM ${UNINSTALL_KEY} UninstallString '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKLM ${UNINSTALL_KEY} QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKLM ${UNINSTALL_KEY} EstimatedSize ${SIZE}
    WriteRegDWORD HKLM ${UNINSTALL_KEY} NoModify 1
    WriteRegDWORD HKLM ${UNINSTALL_KEY} NoRepair 1
FunctionEnd

Section
    Call uninstallOther
    ClearErrors
    ; First of all, so that what fails later can be uninstalled.
    SetOutPath $INSTDIR
    WriteUninstaller "$INSTDIR\uninstall.exe"
    Call addToListOfPrograms
    !include "${LISTS}/install.nsh"
    SetOutPath $INSTDIR
    ${If} ${Errors}
        DetailPrint "Some files cannot be written."
        MessageBox MB_OK|MB_ICONSTOP "Some files cannot be written to $INSTDIR. End the programs that use them, or restart, and install again." /SD IDOK
        SetErrorLevel 2
        Abort
    ${EndIf}

    !insertmacro RunRegsvrs ""
    Push "$INSTDIR\${FOLDER}"
    Call addToMachinePath
    ClearErrors
    CreateShortcut "${SHORTCUT}" "$INSTDIR\README.html"
    ${If} ${Errors}
        !insertmacro ReportFailure "The documentation cannot be added to the Start menu."
    ${EndIf}
    !insertmacro SetExitCode
SectionEnd

; Removes the file of $INSTDIR whose name is on the stack.
Function un.removeFile
    Exch $0
    ClearErrors
    Delete "$INSTDIR\$0"
    ${If} ${Errors}
        ; Programs and DLLs that run can still be renamed, which leaves the name free for another version.
        GetTempFileName $1 $INSTDIR
        Delete $1
        ClearErrors
        Rename "$INSTDIR\$0" $1
        ${If} ${Errors}
            StrCpy $1 "$INSTDIR\$0"
        ${EndIf}
        DetailPrint "$0 is in use. It will be removed at the next restart."
        Delete /REBOOTOK $1
        SetRebootFlag true
    ${EndIf}
    Pop $0
FunctionEnd

!macro RemoveFile NAME
    Push "${NAME}"
    Call un.removeFile
!macroend

; Removes a file unless it has changed since it was installed with the time of SOURCE.
!macro RemoveUnchangedFile NAME SOURCE
    GetFileTimeLocal "${SOURCE}" $2 $3
    GetFileTime "$INSTDIR\${NAME}" $4 $5
    ${If} $2 == $4
    ${AndIf} $3 == $5
        !insertmacro RemoveFile "${NAME}"
    ${EndIf}
!macroend

; Files that are not in the lists are the user's, and stay. So do fonts and samples that the user has changed.
Section Uninstall
    Push "$INSTDIR\${FOLDER}"
    Call un.removeFromMachinePath
    !insertmacro RunRegsvrs /u
    Delete "${SHORTCUT}"
    !include "${LISTS}/uninstall.nsh"
    Delete "$INSTDIR\uninstall.exe"
    SetOutPath $TEMP ; a folder that is in use cannot be removed
    RMDir $INSTDIR
    ${If} ${RebootFlag}
        RMDir /REBOOTOK $INSTDIR ; after the files that are in use now, and only if it is empty then
    ${EndIf}
    DeleteRegKey HKLM ${UNINSTALL_KEY}
    !insertmacro SetExitCode
SectionEnd
