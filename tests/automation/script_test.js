// A script that nobody watches, in a language that passes values only. A check that fails does not end it.
var folder = WScript.Arguments(0); // for the script's files; ends in a separator

function check(sentence, actual, wanted) {
    if (String(actual) == String(wanted))
        WScript.Echo("ok " + sentence);
    else
        WScript.Echo("FAILED " + sentence + ": is [" + actual + "], should be [" + wanted + "]");
}

function errorOf(action) {
    try {
        action();
        return "none";
    } catch (error) {
        return "refused, " + frames.LastErrorNumber + names(frames);
    }
}

function create(name) {
    return new ActiveXObject("qrtVistrelClasses4." + name);
}

function newPlayfile(letters) {
    var playfile = create("FrameInfoClass");
    playfile.TotalFrames = letters.length;
    for (var i = 1; i <= letters.length; i++) {
        playfile.CurrentFrame = i;
        playfile.FrameName = letters.charAt(i - 1);
    }
    return playfile;
}

function names(playfile) {
    var letters = "";
    for (var i = 1; i <= playfile.TotalFrames; i++) {
        playfile.CurrentFrame = i;
        letters += playfile.FrameName || "-";
    }
    return letters;
}

// Clipboards and pictures of frames.
var frames = newPlayfile("ABCDEF");
var clipboard = newPlayfile("xyz");
var sameObject = clipboard;
clipboard.DisplayWidth = 96;
clipboard.FrameName = clipboard.CurrentFrame = 4;
frames.CopyInfo(4, 2, clipboard);
check("it has no error any more", clipboard.LastErrorNumber, 0);
check("copying fills the object that was passed", clipboard.TotalFrames + names(clipboard) + names(sameObject), "3BCDBCD");
check("it is as a new object", clipboard.DisplayWidth + " " + clipboard.TotalFramesAllowed,
      frames.DisplayWidth + " " + frames.TotalFramesAllowed);
frames.CutInfo(1, 2, clipboard);
frames.PasteInfo(4, sameObject);
check("cutting fills it again, and it can be pasted", names(clipboard) + " " + names(frames), "AB CDEABF");
frames.CopyInfo(5, 9, clipboard);
check("frames that do not exist give twenty empty ones", names(clipboard), "--------------------");
frames.CutInfo(1, 1, undefined);
check("without an object, nothing is filled", names(frames), "DEABF");
check("a value of another kind is refused", errorOf(function () { frames.CutInfo(1, 1, null); }), "refused, 0DEABF");
check("the object itself is no clipboard", errorOf(function () { frames.CutInfo(1, 2, frames); }), "refused, 5DEABF");
check("nor is an object of another class", errorOf(function () {
    frames.CutInfo(1, 2, create("MostRecentlyUsed"));
}), "refused, 0DEABF");

var files = new ActiveXObject("Scripting.FileSystemObject");
frames.DisplayWidth = 10;
frames.DisplayHeight = 4;
// The header, and rows of three bytes a pixel with a rim, in multiples of four.
check("a picture of a frame is saved", frames.SavePictureOfFrame(1, folder + "frame.bmp", 1) + " " +
      files.GetFile(folder + "frame.bmp").Size, "true " + (54 + (4 + 2) * 36));
check("with six pixels a dot unless otherwise wanted", frames.SavePictureOfFrame(1, folder + "frame.bmp") + " " +
      files.GetFile(folder + "frame.bmp").Size, "true " + (54 + 32 * 204));
check("what cannot be saved changes nothing", frames.SavePictureOfFrame(6, folder + "frame.bmp") + " " +
      frames.SavePictureOfFrame(1, folder + "frame.bmp", 65) + " " +
      frames.SavePictureOfFrame(1, folder + "no folder\\frame.bmp") + " " +
      files.GetFile(folder + "frame.bmp").Size, "false false false " + (54 + 32 * 204));

// Errors are read after the call that had them.
frames = newPlayfile("A");
check("no error", frames.LastErrorNumber + frames.LastErrorDescription, "0");
frames.CurrentFrame = 7;
frames.FrameName = "nowhere";
check("a trapped error", frames.LastErrorNumber + frames.LastErrorDescription, "9Subscript out of range");
check("a file that cannot be written", frames.WritePlayfileToDisk(folder + "none\\x.playfile"), false);
check("its error", frames.LastErrorNumber, 76);
frames.CurrentFrame = 1;
check("the error is over", frames.FrameName + frames.LastErrorNumber, "A0");
try {
    frames.CurrentFrame = 7;
    frames.AudioFile = "nowhere";
    check("an error is raised", false, true);
} catch (error) {
    check("an error is raised", (error.number & 0xffff) + error.description, "9Subscript out of range");
}

// Before a playfile is sent.
frames = newPlayfile("ABC");
check("blank frames take nothing", [frames.HowManyUsedDisplayFramesAreThere(), frames.WhatsTheTotalPlayTime(),
      frames.ValidateThisPlayfile()], "0,0,false");
frames.CurrentFrame = 2;
frames.FrameType = 2;
frames.DelayTime = 2.5;
frames.PrefixCode = 20004;
frames.SuffixCode = 20001;
frames.CurrentLineNumber = 1;
frames.CurrentLineText = "A";
frames.Scrolling = true;
frames.LineFontSize = 12;
frames.LineCustomFont = "missing font";
check("totals of what is sent", [frames.HowManyUsedDisplayFramesAreThere(), frames.HowManyScrollingLinesInThisFrame(),
      frames.HowManyCustomFontsAreThere(), frames.WhatsTheTotalSizeOfAllCustomFonts()], "1,1,1,0");
frames.Scrolling = false;
check("the time of all rounds of a loop", frames.WhatsTheTotalPlayTime(), 10);
var report = "unchanged";
check("a validation without errors", frames.ValidateThisPlayfile() + " " + frames.ValidateThisPlayfile(report) + report,
      "true trueunchanged");
frames.CurrentFrame = 7;
check("no frame, no lines", frames.HowManyScrollingLinesInThisFrame() + " " + frames.LastErrorNumber, "0 9");

// The other classes.
var settings = create("SettingsInfoClass"), signs = create("DisplayDatabaseClass");
settings.WriteSetting("JScript", "kept");
check("a setting is kept", settings.GetPrivateSetting("JScript", "lost"), "kept");
settings.ScheduleNumber = 2;
settings.BrightnessScheduleBrightnessLevel = 5;
settings.SaveSettingsToDisk("script.ini");
settings = create("SettingsInfoClass");
settings.GetSettingsFromDisk("script.ini");
settings.ScheduleNumber = 2;
check("preferences are saved in a file of the script", settings.BrightnessScheduleBrightnessLevel, 5);
signs.AddNewDisplay("Pier");
signs.CurrentDisplayNumber = 1;
signs.DisplayType = "161";
check("a sign has a type", signs.GetSignTypeDescription(), "ZR-7 - ScrollLink");
signs.CurrentDisplayNumber = 2;
signs.DisplayWidth = 64;
check("a sign that does not exist", signs.LastErrorNumber, 9);
signs.WriteAllDisplaysToDisk("script.dat");
check("signs are saved", signs.LastErrorNumber, 0);
signs = create("DisplayDatabaseClass");
signs.RetrieveAllDisplayInfoFromDisk("script.dat");
check("and read", signs.FindDisplayByName("pier"), 1);

var commands = create("clsCommandInterface"), recent = create("MostRecentlyUsed");
commands.sCommandBytesByKey("##JS") = "\x07";
check("a command has its bytes", commands.sCommandBytesByKey("##JS"), "\x07");
check("without an error", commands.LastErrorNumber, 0);
try {
    commands.sCommandBytesByKey("\u0100") = "\x07";
} catch (error) {
    check("keys are bytes", commands.LastErrorNumber + commands.sCommandBytesByKey("\u0100") + commands.LastErrorNumber, "5\u01000");
}
recent.AddFileToMostRecentlyUsedList("script.playfile");
check("the newest file comes first", recent.GetFirstFileName(), "script.playfile");
recent.RemoveFileFromMostRecentlyUsed("SCRIPT.playfile");
check("a file is taken off the list", recent.GetFileName(1) != "script.playfile", true);
check("an entry before the first", recent.GetFileName(0) + recent.LastErrorNumber, "9");
WScript.Echo("the script ran to its end");
