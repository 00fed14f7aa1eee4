' Signs are added, duplicated, removed, written, and read back by another object.
Dim signs, read, fileName, number, i, copies
Set signs = CreateObject("qrtVistrelClasses4.DisplayDatabaseClass")
Set read = CreateObject("qrtVistrelClasses4.DisplayDatabaseClass")

CheckEqual "a new list has no signs", signs.TotalDisplays, 0
CheckEqual "and no identity number", signs.ClassDebugID & VarType(signs.ClassDebugID), "03"
CheckEqual "a sign is added", signs.AddNewDisplay("Harbour"), 1
CheckEqual "but not twice", signs.AddNewDisplay("HARBOUR"), -1
CheckEqual "a name that is a number is marked", signs.AddNewDisplay(42), 2
signs.CurrentDisplayNumber = 2
CheckEqual "so that it is none", signs.DisplayName, "#42"
signs.CurrentDisplayNumber = 1
signs.DisplayType = 162
signs.DisplayWidth = 96
signs.IsDisplayColor = True
signs.ScrollPauseDelay = 100000
signs.ConnectionMethod = 2
signs.IPAddress = "10.0.0.5"
signs.AppDesc = "Rev 1.44"
signs.CurrentBrightnessScheduleNumber = 4
signs.BrightnessScheduleXStartTime = "6:30 PM"
signs.BrightnessScheduleXBrightnessLevel = 3
CheckEqual "a type is a text", VarType(signs.DisplayType) & signs.DisplayType, "8162"
CheckEqual "with a description", signs.GetSignTypeDescription, "ZR-7 - PhotoTriad"
CheckEqual "a connection method has a name", signs.TranslateConnectionMethodToString(3), "Modem Connect"
CheckEqual "the firmware is told", signs.UseNew16x16, True

number = signs.Duplicate("harbour", "Pier")
CheckEqual "a copy is told by a 32-bit number", VarType(number) & number, "33"
number = signs.Duplicate("nowhere", "Mole")
CheckEqual "no copy by a 16-bit one", VarType(number) & number, "2-1"
CheckEqual "removing tells nothing", signs.RemoveDisplay(2), False
CheckEqual "but the others have moved up", signs.FindDisplayByName("PIER"), 2

fileName = "Displays.dat"
signs.WriteAllDisplaysToDisk fileName
Check "the variable tells the full name", Right(fileName, 13) = "\Displays.dat" And Len(fileName) > 13
fileName = "Other.dat"
read.RetrieveAllDisplayInfoFromDisk fileName
Check "reading goes where the last list was written", Right(fileName, 13) = "\Displays.dat"
read.RetrieveAllDisplayInfoFromDisk
CheckEqual "the signs are read", read.TotalDisplays, 2
read.CurrentDisplayNumber = 2
read.CurrentBrightnessScheduleNumber = 4
CheckEqual "a copy has everything", read.DisplayName & read.DisplayType & read.DisplayWidth & read.IsDisplayColor & _
    read.ScrollPauseDelay & read.BrightnessScheduleXStartTime & read.BrightnessScheduleXBrightnessLevel, _
    "Pier16296True1000006:30 PM3"
CheckEqual "and a network port that was missing", read.GetConnectionInfoInString, "10.0.0.5:3001"
CheckEqual "an unset sensor limit is mended", read.LightSensorMaximum, 9
copies = 0
For i = 1 To 500
    If signs.Duplicate("Pier", "Copy " & i) = i + 2 Then copies = copies + 1
Next
CheckEqual "many signs are added", copies, 500
Finish
