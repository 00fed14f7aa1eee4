' Variables, literals, expressions and nothing at all as arguments.
Dim playfile, settings, number, text, flag, unset
Set playfile = CreateObject("qrtVistrelClasses4.FrameInfoClass")
Set settings = CreateObject("qrtVistrelClasses4.SettingsInfoClass")

number = 3
text = "7"
playfile.CurrentFrame = number
CheckEqual "a variable is taken", playfile.CurrentFrame, 3
playfile.CurrentFrame = text
CheckEqual "a variable with a text is converted", playfile.CurrentFrame, 7
CheckEqual "and stays a text", VarType(text), 8
playfile.CurrentFrame = number + 1
CheckEqual "an expression is taken", playfile.CurrentFrame, 4
playfile.CurrentFrame = unset
CheckEqual "a variable without a value counts as 0", playfile.CurrentFrame, 0

playfile.CurrentFrame = number
playfile.FrameName = 2.5
CheckEqual "a number becomes text", playfile.FrameName, "2.5"
playfile.InitFrame number
CheckEqual "a method takes a variable", playfile.FrameName, ""
CheckEqual "a function takes a literal", playfile.ConvertPrefixCodeToString(20005), "Start Loop [5] times"
number = 20005
CheckEqual "a function takes a variable", playfile.ConvertPrefixCodeToString(number), "Start Loop [5] times"
CheckEqual "a function takes a text", playfile.ConvertSuffixStringToCode("Jump Off"), 1000

flag = True
playfile.SetSuppressMessages flag
playfile.SetSuppressMessages = flag
Check "messages are suppressed by a call and by an assignment", True
playfile.FillEffectList Nothing, Nothing
playfile.FillEffectList unset, Nothing
playfile.RefreshEffectLists Nothing, Nothing
Check "lists that are not there are skipped", True

settings.GetSettingsFromDisk
settings.SaveSettingsToDisk "Other.ini"
text = "Other.ini"
settings.SaveSettingsToDisk text
Check "the file of the settings is optional", True
Finish
