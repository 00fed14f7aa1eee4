// Clipboards and pictures of frames as a language uses them that passes values only.
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
        return "refused, " + names(frames);
    }
}

function newPlayfile(letters) {
    var playfile = new ActiveXObject("qrtVistrelClasses4.FrameInfoClass");
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

var frames = newPlayfile("ABCDEF");
var clipboard = newPlayfile("xyz");
var sameObject = clipboard;
clipboard.DisplayWidth = 96;
frames.CopyInfo(4, 2, clipboard);
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
check("a value of another kind is refused", errorOf(function () { frames.CutInfo(1, 1, null); }), "refused, DEABF");
check("the object itself is no clipboard", errorOf(function () { frames.CutInfo(1, 2, frames); }), "refused, DEABF");
check("nor is an object of another class", errorOf(function () {
    frames.CutInfo(1, 2, new ActiveXObject("qrtVistrelClasses4.MostRecentlyUsed"));
}), "refused, DEABF");

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
WScript.Echo("the script ran to its end");
