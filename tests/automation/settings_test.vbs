' The preferences: defaults, single keys, and all of them on disk.
Dim settings, other
Set settings = CreateObject("qrtVistrelClasses4.SettingsInfoClass")
Set other = CreateObject("qrtVistrelClasses4.SettingsInfoClass")
CheckEqual "the first object has number 1", settings.ClassDebugID, 1
CheckEqual "the next object has number 2", other.ClassDebugID, 2
CheckEqual "numbers have 32 bits", VarType(settings.ClassDebugID), 3

CheckEqual "signs are 64 pixels high by default", settings.DisplayHeight, 64
CheckEqual "the longest delay is 10000 by default", settings.DelayMaximum, 10000
CheckEqual "parameters reset by default", settings.ResetOnGetParameters, True
CheckEqual "schedule 1 is selected", settings.ScheduleNumber, 1
CheckEqual "schedules start at midnight", settings.BrightnessScheduleStartTime, "12:00 AM"

CheckEqual "a missing key gives its default", settings.GetPrivateSetting("ScriptKey", "none"), "none"
settings.WriteSetting "ScriptKey", "kept"
CheckEqual "a written key is found by another object", other.GetPrivateSetting("ScriptKey", "none"), "kept"

settings.DisplayWidth = 256
settings.DelayStep = 12.5
settings.WizardMode = True
settings.DisplayID = "12"
settings.ShowFullPath = True
settings.ScheduleNumber = 4
settings.BrightnessScheduleBrightnessLevel = 2
settings.SaveSettingsToDisk
other.GetSettingsFromDisk
CheckEqual "a number comes back", other.DisplayWidth, 256
CheckEqual "a fraction comes back", other.DelayStep, 12.5
CheckEqual "a flag comes back", other.WizardMode, True
CheckEqual "a text comes back", other.DisplayID, "12"
CheckEqual "what is held in memory only does not", other.ShowFullPath, False
other.ScheduleNumber = 4
CheckEqual "a schedule comes back", other.BrightnessScheduleBrightnessLevel, 2

other.ScheduleNumber = 5
CheckEqual "there is no fifth schedule", other.BrightnessScheduleStartTime, ""
Finish
