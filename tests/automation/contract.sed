# Turns the interface definition into what it promises to programs: names, identifiers, member numbers, arguments.
# Run with -zE.
s,//[^\n]*,,g
# Help may change.
s/,\s+(helpstring\("[^"]*"\)|"[^"]*")//g
s/#define[^)]*\)([^\n]*\\\n)*[^\n]*//
s/\n *(import|cpp_quote)[^\n]*//g
s/\s+/ /g
s/([;{]) (\[|PROPERTY|typedef)/\1\n\2/g
s/ ?\}( [A-Z]\w+)?;?//g
# The library and its types.
s/[^\n]*uuid\(([^)]*)\)(, version\(([^)]*)[^]]*)?\] (\w+ \w+)( : IDispatch)? \{ ?/\n\4 {\U\1\E} \3/g
s/^\n|( |,)(\n|$)/\2/g
s/\nstruct/\nrecord/g
s/\ninterface/\ndual interface/g
s/\ncoclass/\nclass/g
s/(SAFEARRAY\S*) (\w+);/\2 \1/g
s/\n\[default\] interface (\w+);/ \1/g
# Members. A value that is put has no name. Without a default, an optional argument is 0.
s/PROPERTY\(([0-9]+), (\w+), (\w+)\);/    \1 get put \3 \2/g
s/\[(prop(get|put), )?id\(([0-9]+)\)\] HRESULT ([^;]*);/    \3 \2 \4 HRESULT/g
s/(\n    [0-9]+ ) /\1/g
s/, defaultvalue\(0\)//g
s/(optional), defaultvalue\(([0-9]+)\)/\1 \2/g
:flags
s/(\[[a-z ]+), /\1 /
t flags
s/\[([a-z0-9 ]+)\]/\1/g
:put
s/( put [^\n]*in \w+) \w+/\1/
t put
# Properties to get and put that follow each other share a line: first two of them, then four.
s/( get put [^\n]*)\n    ([0-9]+) get put /\1, \2 /g
s/( get put [^\n]*)\n    ([0-9]+) get put /\1, \2 /g
s/$/\n/
