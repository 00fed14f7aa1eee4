' The preferences: single keys, and all of them on disk.
Dim settings, other
Set settings = CreateObject("qrtVistrelClasses4.SettingsInfoClass")
Set other = CreateObject("qrtVistrelClasses4.SettingsInfoClass")
CheckEqual "the next object has the next number", other.ClassDebugID, 2
CheckEqual "numbers have 32 bits", VarType(settings.ClassDebugID), 3
settings.WriteSetting "ScriptKey", "kept"
CheckEqual "a written key is found by another object", other.GetPrivateSetting("ScriptKey", "none"), "kept"

settings.DelayStep = 12.5
settings.WizardMode = True
settings.DisplayID = "12"
settings.ScheduleNumber = 4
settings.BrightnessScheduleBrightnessLevel = 2
settings.SaveSettingsToDisk
other.GetSettingsFromDisk
CheckEqual "a fraction comes back", other.DelayStep, 12.5
CheckEqual "a flag comes back", other.WizardMode, True
CheckEqual "a text comes back", other.DisplayID, "12"
other.ScheduleNumber = 4
CheckEqual "a schedule comes back", other.BrightnessScheduleBrightnessLevel, 2
Finish
