#!/usr/bin/env bash
# Tests the core and the built server under Wine: run.sh BUILD_DIR [32_BIT_BUILD_DIR]
#
# Everything happens in a Wine prefix of its own, $WINEPREFIX or else BUILD_DIR/wine. The 32-bit server and program are
# not run: only their exports and the libraries they need are checked.
# Prints one line for each test and "N passed, N failed" at the end. Fails if a test failed.
set -u
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "$1" && pwd) || exit 2
build32=${2:+$(cd "$2" && pwd)}
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
    local output=$work/$1.txt status
    windows "$output" "${@:2}"
    status=$?
    grep -vE '^(\[ RUN|\[-------|$)' "$output"
    passed=$((passed + $(grep -cE '^(ok |\[       OK \])' "$output")))
    failed=$((failed + $(grep -cE '^(FAILED |\[  FAILED  \] [^ ]*$)' "$output")))
    grep -qE '^(the script ran to its end|\[=+\] .* ran\.)' "$output" || status=1
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

# Checks the server and the program of a build folder from outside.
check_build() { # FOLDER
    local server=$1/qrtVistrelClasses4.dll
    diff <(headers_of "$server" | sed -n '/Name Pointer\] Table/,/^$/s/^\t\[.*\] //p') - <<-'EXPORTS'
	DllCanUnloadNow
	DllGetClassObject
	DllRegisterServer
	DllUnregisterServer
	EXPORTS
    report $? "$server exports the four functions"
    check_libraries "$server"
    check_libraries "$1/vistrel.exe"
}

set_up
check_build "$build"
[ -z "$build32" ] || check_build "$build32"
sed -zEf "$here/contract.sed" "$here/../../automation/qrtVistrelClasses4.idl" | diff -u "$here/contract.txt" -
report $? "the interface definition keeps its promises"
run_tests script_test.vbs cscript //nologo "$(windows_path "$here/script_test.vbs")" "$(windows_path "$data/")"
[ ! -e "$here/../../docs" ] || . "$here/../docs/automation" # the small system of run-32 has no documents and no compiler
for program in automation/automation_tests.exe core_tests.exe; do
    run_tests "$(basename $program)" "$build/tests/$program" --gtest_print_time=0
done
run_twice "$build/tests/core_tests.exe" '*TwoProcesses*'
run_with_code_pages "$build/tests/core_tests.exe"
windows "$work/register.txt" regsvr32 /s /u "$(windows_path "$build/qrtVistrelClasses4.dll")"
report $? "the server unregisters itself"
echo "$passed passed, $failed failed"
[ "$failed" = 0 ]
