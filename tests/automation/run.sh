#!/usr/bin/env bash
# Tests the core, the built server and the program under Wine: run.sh BUILD_DIR [32_BIT_BUILD_DIR [TOOL_TESTS]]
#
# Everything happens in a Wine prefix of its own, $WINEPREFIX or else BUILD_DIR/wine. The 32-bit server and program are
# not run: only their exports and the libraries they need are checked.
# The native program TOOL_TESTS plays its sessions with the program for Windows.
# Prints one line for each test and "N passed, N failed" at the end. Fails if a test failed.
set -u
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "$1" && pwd) || exit 2
build32=${2:+$(cd "$2" && pwd)}
tool_tests=${3:-}
export WINEPREFIX=${WINEPREFIX:-$build/wine} WINEDEBUG=-all
export LC_ALL=C.UTF-8 # code page 1252, which most tests expect
work=$build/automation-test
data=$work/data
passed=0
failed=0

report() { # STATUS NAME
    if [ "$1" = 0 ]; then
        passed=$((passed + 1))
        echo "ok $2"
    else
        failed=$((failed + 1))
        echo "FAILED $2"
    fi
}

windows_path() { printf 'Z:%s' "${1//\//\\}"; }

# Runs a Windows program with its output in FILE. Stops it after two minutes.
windows() { # FILE PROGRAM ARGUMENTS...
    local output=$1
    shift
    timeout -k 5 120 wine "$@" >"$output.raw" 2>&1
    local status=$?
    tr -d '\r' <"$output.raw" >"$output"
    rm "$output.raw"
    return $status
}

set_up() {
    rm -rf "$work" "$build"{,/tests}/{db,Displays.dat*,VistrelLite.MRU} # files that the server keeps in its own folder
    mkdir -p "$data" "$WINEPREFIX"
    cp "$here/../../samples/lobby.PL2" "$data"
    wineboot -i >"$work/wineboot.txt" 2>&1
    # Windows and message boxes then work without a display. Processes that have looked for one must start anew.
    windows "$work/setup.txt" reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f
    wineserver -k
    wineserver -w
    wineserver -p10 # stays between the programs, and ends by itself
    windows "$work/setup.txt" reg add 'HKLM\Software\Brivox\Vistrel3\Settings' /v ShowErrorReports /d False /f
    windows "$work/setup.txt" reg add 'HKLM\Software\Brivox\Vistrel3\Settings' /v AppPath /d "$(windows_path "$data")" /f
    windows "$work/register.txt" regsvr32 /s "$(windows_path "$build/qrtVistrelClasses4.dll")"
    report $? "the server registers itself"
}

# Runs a program that prints the names of its tests and "ok" or "FAILED", as the script does, or "OK" and "FAILED".
run_tests() { # NAME PROGRAM ARGUMENTS...
    windows "$work/$1.txt" "${@:2}"
    report_tests "$1" $?
}

# Plays the sessions of the command line. Wine has to take names of files for UTF-8, as the shell does.
run_sessions() {
    local status
    # On a busy machine, Wine has ended a program with 1 before it printed anything. A second turn shows whether it was that.
    for _ in first second; do
        VISTREL_FOR_WINDOWS="LC_ALL=C.UTF-8 wine '$build/vistrel.exe'" \
            timeout -k 5 300 "$tool_tests" --gtest_filter='Of*/Session.*' --gtest_print_time=0 >"$work/sessions.txt" 2>&1
        status=$?
        [ "$status" != 0 ] || break
        grep -A 12 Failure "$work/sessions.txt"
    done
    report_tests sessions "$status"
}

report_tests() { # NAME STATUS
    local output=$work/$1.txt status=$2
    grep -vE '^(\[ RUN|\[-------|$)' "$output"
    passed=$((passed + $(grep -cE '^(ok |\[       OK \])' "$output")))
    failed=$((failed + $(grep -cE '^(FAILED |\[  FAILED  \] [^ ]*$)' "$output")))
    grep -qE '^(the (script|program) ran to its end|\[=+\] .* ran\.)' "$output" || status=1
    report $status "$1 runs to its end"
}

# Lets two processes change the same files, which do not exist before.
run_twice() { # FILE FILTER
    local process statuses=0 started=() home=$work/home
    rm -rf "$home" && mkdir "$home"
    for process in 0 1; do
        QRT_HOME=$(windows_path "$home") QRT_PROCESS=$process windows "$work/process$process.txt" "$1" --gtest_filter="$2" --gtest_brief=1 &
        started+=($!)
    done
    for process in "${started[@]}"; do
        wait "$process" || statuses=1
    done
    [ "$statuses" = 0 ] || cat "$work"/process?.txt
    report "$statuses" "$(basename "$1") runs twice at once: $2"
}

# Runs the tests of code pages with those of several locales, which need not be installed: only the shell minds.
run_with_code_pages() { # FILE
    local page status output=$work/code_page.txt
    for page in pl_PL:1250 ru_RU:1251 tr_TR:1254 ja_JP:932; do
        { LC_ALL=${page%:*}.UTF-8 QRT_CODE_PAGE=${page#*:} windows "$output" "$1" --gtest_filter='CodePage.*' --gtest_brief=1; } 2>/dev/null
        status=$?
        [ "$status" = 0 ] || cat "$output"
        report "$status" "$(basename "$1") runs with code page ${page#*:}"
    done
}

headers_of() { x86_64-w64-mingw32-objdump -p "$1"; }

check_libraries() { # FILE
    ! headers_of "$1" | grep 'DLL Name:' |
        grep -viE ' (advapi32|gdi32|kernel32|msvcrt|ole32|oleaut32|shell32|user32)\.dll$'
    report $? "$1 needs no libraries but the system's"
}

# Checks the version that Windows shows for a file: as numbers, and as text.
check_version() { # FILE
    local shown
    windows "$work/version.txt" cscript //nologo "$(windows_path "$here/show_version.vbs")" "$(windows_path "$1")"
    shown=$(x86_64-w64-mingw32-strings -el "$1" | grep -A 1 FileVersion | paste -sd ' ')
    [ "vistrel $(cat "$work/version.txt")" = "$version.0" ] && [ "$shown" = "FileVersion ${version#* }" ]
    report $? "$1 is of version ${version#* }"
}

# Checks the server and the program of a build folder from outside.
check_build() { # FOLDER
    local file server=$1/qrtVistrelClasses4.dll
    diff <(headers_of "$server" | sed -n '/Name Pointer\] Table/,/^$/s/^\t\[.*\] //p') - <<-'EXPORTS'
	DllCanUnloadNow
	DllGetClassObject
	DllRegisterServer
	DllUnregisterServer
	EXPORTS
    report $? "$server exports the four functions"
    for file in "$server" "$1/vistrel.exe"; do
        check_libraries "$file"
        check_version "$file"
    done
}

# Checks that the program finds something in the registration of a class.
check_doctor() { # NAME FINDING [FILE_FOR_THIS_USER]
    local key='HKCU\Software\Classes\CLSID\{9AE6AD44-C589-4050-9359-78F603D30A08}' # of FrameInfoClass
    [ -z "${3:-}" ] || windows "$work/setup.txt" reg add "$key\InprocServer32" /ve /d "$3" /f
    windows "$work/doctor.txt" "$build/vistrel.exe" doctor --json
    tr -d ' \n' <"$work/doctor.txt" | grep -qE "\"check\":\"server.$2"
    report $? "the program finds $1"
    [ -z "${3:-}" ] || windows "$work/setup.txt" reg delete "$key" /f
}

# Registrations that are as they should be, and others.
check_registrations() {
    check_doctor "the registered server" 'file","severity":"ok","subject":"[0-9]*-bitserver","message":"allclasses:'
    check_doctor "a registration for one user" 'file","severity":"ok",.*FrameInfoClass,forthisuseronly' \
        "$(windows_path "$build/qrtVistrelClasses4.dll")"
    check_doctor "a registered file that is missing" 'file","severity":"error"' 'Z:\gone.dll'
    check_doctor "a registered file that programs search for" 'file","severity":"note"' gone.dll
    check_doctor "another version" 'version","severity":"warning"' 'C:\windows\system32\oleaut32.dll'
    [ -z "$build32" ] || check_doctor "the other bitness" 'bitness","severity":"error"' \
        "$(windows_path "$build32/qrtVistrelClasses4.dll")"
}

# The program writes the name of its list of signs into the registry, and a script finds the list.
check_shared_signs() {
    local folder=$work/hö key='HKLM\Software\Brivox\VistrelLite\Preview'
    mkdir "$folder" && cp "$build/vistrel.exe" "$folder"
    windows "$work/setup.txt" reg delete "$key" /v DisplayDataFile /f
    windows "$work/signs.txt" "$folder/vistrel.exe" signs add Pier
    cat >"$work/signs.vbs" <<-'SCRIPT'
	Set signs = CreateObject("qrtVistrelClasses4.DisplayDatabaseClass")
	signs.RetrieveAllDisplayInfoFromDisk
	WScript.Echo signs.TotalDisplays & signs.FindDisplayByName("Pier")
	SCRIPT
    windows "$work/signs.txt" cscript //nologo "$(windows_path "$work/signs.vbs")"
    grep -qx 11 "$work/signs.txt"
    report $? "a script finds the signs of the program in a folder with an umlaut"
    windows "$work/setup.txt" reg delete "$key" /v DisplayDataFile /f
}

set_up
windows "$work/version.txt" "$build/vistrel.exe" --version
version=$(cat "$work/version.txt")
check_build "$build"
[ -z "$build32" ] || check_build "$build32"
# Compiled programs know contract.txt. Each of its interfaces may only have more members after those.
awk -v RS= -F '\n' 'NR == FNR { heading = $1; sub(/[^\n]*/, ""); newer[heading] = $0; next } { print separator $0 newer[$1]; separator = "\n" }' \
    "$here/contract-newer.txt" "$here/contract.txt" |
    diff -u - <(sed -zEf "$here/contract.sed" "$here/../../automation/qrtVistrelClasses4.idl")
report $? "the interface definition keeps its promises"
run_tests script_test.vbs cscript //nologo "$(windows_path "$here/script_test.vbs")" "$(windows_path "$data/")"
QRTVISTREL_UNATTENDED=1 run_tests script_test.js cscript //nologo "$(windows_path "$here/script_test.js")" "$(windows_path "$data/")"
. "$here/unattended"
[ ! -e "$here/../../docs" ] || . "$here/../docs/automation" # the small system of run-32 has no documents and no compiler
run_tests early_bound "$build/tests/automation/EarlyBound.exe"
run_tests by_position "$build/tests/automation/ByPosition.exe"
check_registrations
alone='*NeedsNoRegistration*'
run_tests automation "$build/tests/automation/automation_tests.exe" --gtest_print_time=0 --gtest_filter="-$alone"
run_tests automation_alone "$build/tests/automation/automation_tests.exe" --gtest_print_time=0 --gtest_filter="$alone"
run_tests core_tests "$build/tests/core_tests.exe" --gtest_print_time=0
[ -z "$tool_tests" ] || run_sessions
run_twice "$build/tests/core_tests.exe" '*TwoProcesses*'
run_with_code_pages "$build/tests/core_tests.exe"
check_shared_signs
windows "$work/register.txt" regsvr32 /s /u "$(windows_path "$build/qrtVistrelClasses4.dll")"
report $? "the server unregisters itself"
echo "$passed passed, $failed failed"
[ "$failed" = 0 ]
