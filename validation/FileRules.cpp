// The files of pictures, commands and sounds.
#include "media/PictureCache.h"
#include "platform/FileNames.h"
#include "platform/FixedDrives.h"
#include "platform/LetterCase.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "platform/Remembered.h"
#include "playfile/ReferenceFinder.h"
#include "validation/Rules.h"

#include <algorithm>
#include <array>
#include <limits>
#include <unordered_map>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::array<std::string_view, 3> kPictureEndings{"bmp", "gif", "avi"};
constexpr std::array<std::string_view, 4> kSoundEndings{"wav", "mp3", "mid", "wma"};

template <std::size_t count>
bool endsInOneOf(const std::array<std::string_view, count>& endings, std::string_view name) {
    return std::ranges::any_of(endings, [&](std::string_view ending) { return HasEnding(name, ending); });
}

/// Whether a picture has more than one colour besides black.
bool hasColors(const Raster& picture) {
    std::optional<Color> first;
    for (std::int32_t y = 0; y < picture.height(); ++y)
        for (const Color pixel : picture.row(y)) {
            if (pixel != 0 && first && pixel != *first)
                return true;
            if (pixel != 0)
                first = pixel;
        }
    return false;
}

/// Whether previews would draw the picture of a file if it were not damaged.
bool isDamaged(const PictureOutcome& outcome) {
    const auto fits = [](std::int32_t side) { return side <= kLargestPictureSide; };
    const auto& animation = outcome.animation;
    return outcome.what == PictureOutcome::What::unreadable &&
           (!animation || (fits(animation->size.width) && fits(animation->size.height)));
}

/// What is known about the file of a reference.
struct FileFacts {
    std::optional<std::string> place; ///< A reference that leads to it. Nothing if it is missing.
    bool isFixed = true;              ///< Whether it lies on a drive that stays.
    bool isReadable = true;
    std::uint64_t size = 0; ///< In bytes.
};

struct PictureFacts {
    std::optional<DotSize> size;
    std::optional<std::int32_t> pictures; ///< In the file; 1 for a still one.
    bool hasColors = false;
    bool isOfReadKind = false; ///< Whether it should be readable.
    bool isTooLarge = false;   ///< To be read to its end; then nothing may be known of it.
};

/// Looks at files, at each reference once.
class FilesOfPlayfile {
public:
    explicit FilesOfPlayfile(const Playfile& playfile)
        : finder_(playfile.fileName), drives_(platform().files()) {}

    const FileFacts& file(const std::string& reference) {
        return Remembered(files_, reference, [&] { return lookAt(reference); });
    }
    /// Of a file that is there.
    const PictureFacts& picture(const std::string& place) {
        return Remembered(pictures_, place, [&] { return lookInto(place); });
    }

private:
    FileFacts lookAt(const std::string& reference) {
        FileFacts facts;
        facts.place = finder_.fileOf(reference);
        if (!facts.place)
            return facts;
        facts.isFixed = drives_.hold(*facts.place);
        FileSystem& files = platform().files();
        const auto file = files.openToRead(PathOnDisk(files, *facts.place));
        facts.isReadable = static_cast<bool>(file);
        facts.size = file ? file.value()->size() : 0;
        return facts;
    }

    PictureFacts lookInto(const std::string& place) {
        const PictureOutcome& outcome = cache_.find(place);
        PictureFacts facts;
        facts.isOfReadKind = outcome.what == PictureOutcome::What::unreadable;
        facts.isTooLarge = outcome.isTooLarge;
        if (isDamaged(outcome) && !outcome.isTooLarge)
            return facts;
        if (const auto& pictures = outcome.pictures; !pictures.empty()) {
            facts.size = pictures.front().pixels.size();
            facts.pictures = 1;
            facts.hasColors = std::ranges::any_of(pictures, hasColors, &TimedPicture::pixels);
        }
        if (const auto& animation = outcome.animation) {
            facts.size = animation->size;
            facts.pictures = animation->pictures;
        }
        return facts;
    }

    ReferenceFinder finder_;
    FixedDrives drives_;
    PictureCache cache_;
    std::unordered_map<std::string, FileFacts> files_;
    std::unordered_map<std::string, PictureFacts> pictures_;
};

/// A kind of file that frames name.
struct FileUseInFrame {
    std::string FrameRecord::*member;
    std::string_view property;
    std::string_view title; ///< In messages.
    RuleName missing;
    RuleName unreadable;
};
constexpr FileUseInFrame kPictureUse{&FrameRecord::PicturefileName,
                                     kPropertyOf<&FrameRecord::PicturefileName>, "picture", "picture-missing",
                                     "picture-unreadable"};
constexpr FileUseInFrame kCommandUse{&FrameRecord::commandfile, kPropertyOf<&FrameRecord::commandfile>,
                                     "command file", "command-file-missing", "command-file-unreadable"};
constexpr FileUseInFrame kSoundUse{&FrameRecord::AudioFile, kPropertyOf<&FrameRecord::AudioFile>, "sound",
                                   "sound-missing", "sound-unreadable"};

class FileCheck {
public:
    FileCheck(const Playfile& playfile, const ValidationCircumstances& circumstances, Findings& findings)
        : files_(playfile), circumstances_(circumstances), findings_(findings) {}

    void check(const FrameRecord& frame, std::int32_t number) {
        number_ = number;
        if (HasPicture(frame))
            checkPicture(frame);
        if (KindOf(frame) == NEW_FRAME_TYPES::FRAME_CMD)
            checkCommandFile(frame);
        if (!frame.AudioFile.empty())
            checkSound(frame);
        if (HasText(frame) && circumstances_.looksAtFiles)
            checkCustomFonts(frame);
    }

private:
    Place placeOf(const FileUseInFrame& use) const { return {number_, 0, use.property}; }

    bool hasName(const FrameRecord& frame, const FileUseInFrame& use, RuleName unnamed) {
        if ((frame.*use.member).empty())
            findings_.add(unnamed, placeOf(use),
                          "The frame has no name of a " + std::string(use.title) + '.');
        return !(frame.*use.member).empty();
    }

    /// The facts of a file that can be read; null after a finding that it cannot.
    const FileFacts* existing(const FrameRecord& frame, const FileUseInFrame& use) {
        const std::string& reference = frame.*use.member;
        const std::string the = "The " + std::string(use.title);
        if (!circumstances_.looksAtFiles)
            return nullptr;
        const FileFacts& facts = files_.file(reference);
        if (!facts.place) {
            findings_.add(use.missing, placeOf(use), the + ' ' + QuotedPath(reference) + " is missing.");
            return nullptr;
        }
        if (!EqualIgnoringAsciiCase(*facts.place, reference))
            findings_.add("reference-moved", placeOf(use),
                          the + ' ' + QuotedPath(reference) +
                              " is not there, but beside the playfile: " + QuotedPath(*facts.place) + '.');
        checkDrive(facts, placeOf(use), the);
        if (!facts.isReadable)
            findings_.add(use.unreadable, placeOf(use),
                          the + ' ' + QuotedPath(*facts.place) + " cannot be read.");
        return facts.isReadable ? &facts : nullptr;
    }

    void checkDrive(const FileFacts& facts, const Place& place, const std::string& the) {
        if (!facts.isFixed)
            findings_.add("drive-may-go-away", place,
                          the + ' ' + QuotedPath(*facts.place) + " lies on a drive that may go away.");
    }

    /// Fonts with a full path. Others are in the application's folders.
    void checkCustomFonts(const FrameRecord& frame) {
        for (std::int32_t number = 1; number <= frame.lines.upperBound(); ++number) {
            const LineRecord& line = frame.lines.at(number);
            if (line.LineFontSize == kCustomFont && IsRootedPath(line.LineCustomFont))
                checkDrive(files_.file(line.LineCustomFont),
                           {number_, number, kPropertyOf<&LineRecord::LineCustomFont>}, "The font");
        }
    }

    void checkPicture(const FrameRecord& frame) {
        if (!hasName(frame, kPictureUse, "picture-unnamed"))
            return;
        const FileFacts* const file = existing(frame, kPictureUse);
        if (!file)
            return;
        const PictureFacts& picture = files_.picture(*file->place);
        const std::string the = "The picture " + QuotedPath(*file->place);
        if (!picture.size) {
            const bool isOfKnownKind = picture.isOfReadKind || endsInOneOf(kPictureEndings, *file->place);
            if (isOfKnownKind && !picture.isTooLarge)
                findings_.add("picture-unreadable", placeOf(kPictureUse),
                              the + " is damaged, or of a form that nobody reads.");
            else if (!isOfKnownKind)
                findings_.add("picture-unknown-kind", placeOf(kPictureUse),
                              the + " is no BMP, GIF or AVI file; only the sign knows what is in it.");
            return;
        }
        checkSize(frame, *picture.size, the);
        checkPictures(frame, picture.pictures.value_or(1));
        if (picture.hasColors && !circumstances_.showsColors.value_or(true))
            findings_.add("picture-colors", placeOf(kPictureUse),
                          the + " has colours, and the sign shows only one.");
    }

    void checkSize(const FrameRecord& frame, DotSize picture, const std::string& the) {
        constexpr std::int16_t isCropped = 1;
        const auto& sign = circumstances_.signSize;
        if (!sign || frame.PictureFileDisplay == isCropped ||
            (picture.width <= sign->width && picture.height <= sign->height))
            return;
        findings_.add("picture-too-large", placeOf(kPictureUse),
                      the + " has " + SizeText(picture) + " dots, and the sign has " + SizeText(*sign) + '.');
    }

    /// A still picture may have 0 or 1.
    void checkPictures(const FrameRecord& frame, std::int32_t pictures) {
        const std::int32_t given = frame.AVIFrames;
        if (given == pictures || (pictures <= 1 && given >= 0 && given <= 1))
            return;
        const bool fits = pictures <= std::numeric_limits<std::int16_t>::max();
        findings_.add("animation-frames", {number_, 0, kPropertyOf<&FrameRecord::AVIFrames>},
                      "AVIFrames is " + std::to_string(given) + ", and the file has " +
                          CountText(pictures, "picture", "pictures") + '.',
                      fits ? std::optional<double>(pictures <= 1 ? 0 : pictures) : std::nullopt);
    }

    void checkCommandFile(const FrameRecord& frame) {
        if (!hasName(frame, kCommandUse, "command-file-unnamed"))
            return;
        const FileFacts* const file = existing(frame, kCommandUse);
        if (file && file->size == 0)
            findings_.add("command-file-empty", placeOf(kCommandUse),
                          "The command file " + QuotedPath(*file->place) + " is empty.");
    }

    void checkSound(const FrameRecord& frame) {
        const FileFacts* const file = existing(frame, kSoundUse);
        if (file && !endsInOneOf(kSoundEndings, *file->place))
            findings_.add("sound-unknown-kind", placeOf(kSoundUse),
                          "The sound " + QuotedPath(*file->place) + " is no WAV, MP3, MID or WMA file.");
    }

    FilesOfPlayfile files_;
    const ValidationCircumstances& circumstances_;
    Findings& findings_;
    std::int32_t number_ = 0; ///< Of the frame that is checked.
};

} // namespace

void CheckFiles(const Playfile& playfile, const ValidationCircumstances& circumstances, Findings& findings) {
    FileCheck check(playfile, circumstances, findings);
    for (std::int32_t number = 1; number <= playfile.frames.upperBound(); ++number)
        if (const FrameRecord& frame = playfile.frames.at(number); IsUsed(frame))
            check.check(frame, number);
}

} // namespace qrtVistrelClasses4
