# Turns the examples of a page into a script and what it prints:
#     awk -f examples.awk -v script=FILE -v expected=FILE PAGE
# An example is a line that starts with "    $ "; the indented lines below it are its output. One without output may print
# anything. One that shows an error fails.
function finish() {
    if (command == "")
        return
    print command (shown == "" ? " >/dev/null" : "") (shown ~ /vistrel: / ? "" : " || echo failed") > script
    printf "%s", shown > expected
    command = shown = ""
}
/^    \$ / {
    finish()
    blank = ""
    command = substr($0, 7)
    sub(/ # .*/, "", command)
    next
}
/^    / && command != "" { shown = shown blank substr($0, 5) "\n" }
/^[^ ]/ { finish() }
{ blank = $0 == "" ? "\n" : "" }
END { finish() }
