' Variables, literals and nothing at all as arguments.
Dim playfile, number, text, unset
Set playfile = CreateObject("qrtVistrelClasses4.FrameInfoClass")

number = 3
text = "7"
playfile.CurrentFrame = text
CheckEqual "a variable with a text is converted", playfile.CurrentFrame, 7
CheckEqual "and stays a text", VarType(text), 8
playfile.CurrentFrame = unset
CheckEqual "a variable without a value counts as 0", playfile.CurrentFrame, 0
playfile.CurrentFrame = number
CheckEqual "a variable is taken", playfile.CurrentFrame, 3
playfile.FrameName = 2.5
CheckEqual "a number becomes text", playfile.FrameName, "2.5"
playfile.InitFrame number
CheckEqual "a method takes a variable", playfile.FrameName, ""
CheckEqual "a function takes a literal", playfile.ConvertPrefixCodeToString(20005), "Start Loop [5] times"
CheckEqual "a function takes a text", playfile.ConvertSuffixStringToCode("Jump Off"), 1000

playfile.SetSuppressMessages = True
playfile.FillEffectList unset, Nothing
playfile.RefreshEffectLists Nothing, Nothing
Check "a method may be assigned to, and lists that are not there are skipped", True
Finish
