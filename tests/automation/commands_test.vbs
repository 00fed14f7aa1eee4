' The command table and the recent files.
Dim commands, other, recent, i, key, text

Set commands = CreateObject("qrtVistrelClasses4.clsCommandInterface")
Check "the built-in commands are there", commands.iTotalCommands >= 14
CheckEqual "a row has a key", commands.sCommandKeyByNum(1), "|h:m|"
CheckEqual "a row below the first has none", commands.sCommandKeyByNum(0), ""
CheckEqual "a key has bytes", Asc(commands.sCommandBytesByKey("##C")), 3
CheckEqual "a row has them too", commands.sCommandBytesByNum(9), commands.sCommandBytesByKey("##C")
CheckEqual "an unknown key comes back", commands.sCommandBytesByKey("nothing"), "nothing"
On Error Resume Next
text = commands.sCommandKeyByNum(32000)
CheckError "a row that is not there is error 9", 9
text = commands.sCommandBytesByNum(32000)
CheckError "for its bytes as well", 9
commands.sCommandBytesByNum(32000) = "x"
CheckError "and for setting them", 9
On Error GoTo 0

key = "key " & Chr(1) & Chr(126)
commands.sCommandBytesByKey(key) = "first"
commands.sCommandBytesByKey(key) = "second"
commands.sCommandBytesByKey(key) = ""
CheckEqual "a new key gets a row, whose bytes are set but never cleared", commands.sCommandBytesByKey(key), "second"
i = commands.iTotalCommands
CheckEqual "the row is the last", commands.sCommandKeyByNum(i), key
commands.sCommandBytesByNum(i) = "third"
commands.SortCommandByLargestFirst
CheckEqual "the order stays", commands.sCommandBytesByNum(i), "third"
Set commands = Nothing
Set other = CreateObject("qrtVistrelClasses4.clsCommandInterface")
CheckEqual "the end of an object writes the table for the next", other.sCommandBytesByKey(key), "third"
Set other = Nothing

Set recent = CreateObject("qrtVistrelClasses4.MostRecentlyUsed")
Check "recent files have an identity number", recent.ClassDebugID > 0
recent.AddFileToMostRecentlyUsedList "C:\Signs\A.plw"
recent.AddFileToMostRecentlyUsedList "C:\Signs\B.plw"
recent.AddFileToMostRecentlyUsedList "c:\signs\a.plw"
CheckEqual "the newest file comes first", recent.GetFirstFileName & recent.GetNextFile, "c:\signs\a.plwC:\Signs\B.plw"
Set other = CreateObject("qrtVistrelClasses4.MostRecentlyUsed")
CheckEqual "another object reads the same", other.GetFileName(2), "C:\Signs\B.plw"
other.RemoveFileFromMostRecentlyUsed "C:\SIGNS\B.PLW"
other.RemoveFileFromMostRecentlyUsed "C:\Signs\A.plw"
CheckEqual "removed files are gone", other.TotalFilesInList, 0
CheckEqual "behind the end there is nothing", other.GetFileName(99), ""
recent.PurgeMRUList
CheckEqual "a purged list is empty", recent.TotalFilesInList, 0
Finish
