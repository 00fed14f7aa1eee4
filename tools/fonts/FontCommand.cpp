// vistrel font: shows fonts of signs, makes them from pictures and other fonts, exports them, and checks them
// against playfiles.
#include "fonts/FontLoading.h"
#include "frame/SystemErrors.h"
#include "tools/commands/StoredCommands.h"
#include "tools/fonts/BdfFont.h"
#include "tools/fonts/FontChanges.h"
#include "tools/fonts/FontGallery.h"
#include "tools/fonts/FontNeeds.h"
#include "tools/fonts/FontOpening.h"
#include "tools/fonts/FontPictures.h"
#include "tools/fonts/FontScaling.h"
#include "tools/fonts/FontSheet.h"
#include "tools/playfile/Opening.h"
#include "tools/preview/PngFile.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include "tools/program/FileStart.h"
#include "tools/program/Inputs.h"
#include "tools/program/JsonText.h"
#include "tools/program/Moment.h"
#include "tools/program/Outputs.h"
#include "tools/program/Table.h"
#include "tools/program/ValueKinds.h"
#include <qrtVistrelClasses4/RuntimeError.h>

#include <vector>

namespace qrtVistrelClasses4 {
namespace {

using nlohmann::ordered_json;

struct FontOptions {
    std::string file;
    std::optional<DotSize> size; ///< If missing, that of the font.
    std::string source;
    OutputOptions output;
    InputOptions playfiles;
    std::optional<Moment> at;
    AnswerOptions answers;
    bool json = false;
    bool asSource = false;
    bool header = false;
    bool noHeader = false;
    bool extended = false;
};

std::optional<Font> loadFont(const FontOptions& options, ErrorLines& errors) {
    return OpenFont(options.file, options.size ? std::optional(CellSizeOf(*options.size)) : std::nullopt,
                    errors);
}

ordered_json jsonOf(const std::string& file, const FontPictures& font) {
    ordered_json letters = ordered_json::array();
    for (const LetterPicture& letter : font.letters)
        letters.push_back({{"code", letter.code},
                           {"character", CharacterText(letter.code)},
                           {"width", letter.rows.front().size()},
                           {"rows", letter.rows}});
    return {{"file", file},
            {"width", font.cell.width},
            {"height", font.cell.height},
            {"letters", std::move(letters)}};
}

ExitCode show(const FontOptions& options, Session& session) {
    const std::optional<Font> font = loadFont(options, session.errors);
    if (!font)
        return ExitCode::failed;
    const FontPictures pictures = PicturesOf(*font);
    if (options.json)
        session.out << JsonText(jsonOf(options.file, pictures)) << '\n';
    else if (options.asSource)
        session.out << FontPicturesText(pictures);
    else
        PrintLetters(session.out, pictures);
    return ExitCode::done;
}

/// Adds an error and returns nothing if the file has no pictures of letters.
std::optional<FontPictures> readPictures(const std::string& path, ErrorLines& errors) {
    constexpr std::size_t largest = std::size_t{16} << 20; // enough for BDF fonts of many languages
    errors.aboutFile(path);
    const std::string source = FileStart(path, largest + 1);
    if (source.size() <= largest)
        return IsBdf(source) ? ReadBdf(source, errors) : ReadFontPictures(source, errors);
    errors.add("is larger than " + std::to_string(largest) + " bytes");
    return std::nullopt;
}

/// The layout of a new font: the one that the library expects of a font of that name, unless the options
/// choose another. Adds an error and returns nothing if no font of that name can have the layout or the size.
std::optional<FontLayout> layoutOf(const FontOptions& options, CellSize cell, ErrorLines& errors) {
    const std::optional<CellSize> size = SizeOfNumberedFont(options.file);
    errors.about(options.file);
    if (size && options.header)
        errors.add("a font of this name has no header: leave out --header, or choose another name");
    else if (size && *size != cell)
        errors.add("a font of this name has letters of " + SizeText(*size) + " dots, not " + SizeText(cell) +
                   ": give --size " + std::to_string(size->width) + "x" + std::to_string(size->height) +
                   ", or choose another name");
    else
        return size || options.noHeader ? FontLayout::sized : FontLayout::header;
    return std::nullopt;
}

/// What is printed about a new font after its size.
std::string remarks(const std::optional<Font>& before, const Font& font) {
    if (!before)
        return "";
    const FontPictures old = PicturesOf(*before), now = PicturesOf(font);
    return "; " +
           (old.cell == now.cell ? ChangesOf(old, now) : "they were " + SizeText(old.cell) + " before");
}

/// Writes a font of the letters in `pictures`. There are `others` that it cannot hold.
ExitCode write(const Font& font, const FontPictures& pictures, FontLayout layout, std::size_t others,
               const FontOptions& options, Session& session) {
    const std::string& path = options.file;
    const std::optional<Font> before = PresentFont(path, pictures.cell);
    if (!before && !options.output.force && platform().files().kindOf(path) == EntryKind::file) {
        session.errors.about(path);
        session.errors.add(FileFault{"is not a font" + NoteOfKind(path) + "; --force replaces it", true});
        return ExitCode::failed;
    }
    OutputOptions output = options.output;
    output.out = path;
    Outputs outputs(output, ExistingFiles::replacedIfAlike, session);
    if (const auto code = outputs.codeInsteadOf(path, "not made"))
        return *code;
    AboutOutput(session.errors, path);
    OutputTarget file(path, session.out);
    Check(file.write(layout == FontLayout::header ? HeaderFontBytes(font) : SizedFontBytes(font)));
    Check(file.commit());
    outputs.remark(
        Visible(OutputName(path)) + ": " + std::to_string(pictures.letters.size()) + " letters of " +
        SizeText(pictures.cell) + " dots" + (options.noHeader ? ", without a header" : "") +
        (others > 0 ? ", and " + std::to_string(others) + " others are left to an extended font" : "") +
        remarks(before, font));
    return ExitCode::done;
}

/// Writes the file with the dots and the index beside it.
ExitCode writeExtended(const std::vector<ExtendedLetter>& letters, CellSize cell, const FontOptions& options,
                       Session& session) {
    constexpr std::string_view dotsEnding = ".cff";
    const std::string& path = options.file;
    session.errors.about(path);
    if (EndingOf(path) != dotsEnding) {
        session.errors.add("must end in .CFF: the index that belongs to it is written beside it, as .IDX");
        return ExitCode::wrongUsage;
    }
    const std::string index = path.substr(0, path.size() - dotsEnding.size()) + ".IDX";
    if (!options.output.force && platform().files().kindOf(path) == EntryKind::file &&
        ExtendedPartOf(path) == ExtendedPart::none) {
        session.errors.add("is not an extended font; --force replaces it");
        return ExitCode::failed;
    }
    Outputs outputs(options.output, ExistingFiles::replacedIfAlike, session);
    const ExtendedFontFiles files = ExtendedFontBytes(letters);
    for (const auto& [name, bytes] : {std::pair(&path, &files.dots), std::pair(&index, &files.index)}) {
        if (const auto code = outputs.codeInsteadOf(*name, "not made")) {
            if (*code != ExitCode::done)
                return *code;
            continue;
        }
        AboutOutput(session.errors, *name);
        OutputTarget file(*name, session.out);
        Check(file.write(*bytes));
        Check(file.commit());
    }
    outputs.remark(Visible(OutputName(path)) + ": " + std::to_string(letters.size()) + " letters of " +
                   SizeText(cell) + " dots for fonts that lack them");
    return ExitCode::done;
}

ExitCode makeExtended(FontPictures& pictures, const FontOptions& options, Session& session) {
    session.errors.about(options.source);
    const FontPictures others = TakeExtendedLetters(pictures);
    if (others.letters.empty()) {
        session.errors.add("has no letters but those of 32 to 127, which every font holds");
        return ExitCode::failed;
    }
    const auto letters = ExtendedLettersOf(others, session.errors);
    return letters ? writeExtended(*letters, others.cell, options, session) : ExitCode::failed;
}

ExitCode make(const FontOptions& options, Session& session) {
    std::optional<FontPictures> pictures = readPictures(options.source, session.errors);
    if (pictures && options.size)
        pictures = Enlarged(*pictures, CellSizeOf(*options.size), session.errors);
    if (!pictures)
        return ExitCode::failed;
    if (options.extended)
        return makeExtended(*pictures, options, session);
    const std::optional<FontLayout> layout = layoutOf(options, pictures->cell, session.errors);
    if (!layout)
        return ExitCode::wrongUsage;
    session.errors.about(options.source);
    std::size_t others = 0;
    if (FontPictures held = *pictures; *layout == FontLayout::sized) {
        others = TakeExtendedLetters(held).letters.size();
        if (!held.letters.empty()) // otherwise the first letter is the error
            pictures = std::move(held);
    }
    const std::optional<Font> font = FontOf(*pictures, *layout, session.errors);
    if (!font)
        return ExitCode::failed;
    return write(*font, *pictures, *layout, others, options, session);
}

/// Writes the font as BDF or as a picture of its letters, as the ending says.
ExitCode exportFont(const FontOptions& options, Session& session) {
    constexpr std::string_view textEnding = ".bdf", pictureEnding = ".png";
    const std::string& path = options.output.out;
    const bool isPicture = EndingOf(path) == pictureEnding;
    if (!HasEnding(path, {textEnding, pictureEnding}, session.errors))
        return ExitCode::wrongUsage;
    const std::optional<Font> font = loadFont(options, session.errors);
    if (!font)
        return ExitCode::failed;
    const FontPictures pictures = PicturesOf(*font);
    if (pictures.letters.empty()) {
        session.errors.add("has no letters");
        return ExitCode::failed;
    }
    Outputs outputs(options.output, ExistingFiles::replaced, session);
    if (const auto code = outputs.codeInsteadOf(path))
        return *code;
    AboutOutput(session.errors, path);
    OutputTarget file(path, session.out);
    if (isPicture)
        WritePng(FontSheet(pictures), file);
    else
        Check(file.write(BdfText(pictures, StemOf(options.file))));
    Check(file.commit());
    outputs.remark(Visible(OutputName(path)) + ": " + std::to_string(pictures.letters.size()) +
                   " letters of " + SizeText(pictures.cell) + " dots");
    return ExitCode::done;
}

/// Prints the characters of the playfile `path` that the font lacks.
ExitCode checkFor(const std::string& path, const Font& font, const CommandTable& commands,
                  const FontOptions& options, Session& session) {
    const auto opened = OpenPlayfile(path, YesUnlessNo(options.answers), session.errors);
    if (!opened)
        return ExitCode::failed;
    const auto needs = NeedsOf(opened->playfile.frames, commands);
    Table lacking(
        {{"Code", Table::Align::right}, {"Character"}, {"Times", Table::Align::right}, {"First in"}});
    std::size_t count = 0;
    for (const auto& [code, need] : needs)
        if (!font.has(static_cast<char>(code))) {
            ++count;
            lacking.addRow({std::to_string(code), Visible(CharacterText(code)), std::to_string(need.times),
                            "frame " + std::to_string(need.frame) + ", line " + std::to_string(need.line)});
        }
    session.errors.about(options.file);
    if (count == 0) {
        session.out << Visible(options.file) << " has all " << needs.size() << " characters of "
                    << Visible(InputName(path)) << '\n';
        return ExitCode::done;
    }
    session.out << lacking;
    session.errors.add("lacks " + std::to_string(count) + " of " + std::to_string(needs.size()) +
                       " characters of " + InputName(path));
    return ExitCode::failed;
}

ExitCode check(const FontOptions& options, Session& session) {
    std::optional<Font> font = loadFont(options, session.errors);
    if (!font)
        return ExitCode::failed;
    for (const std::string& damaged : AddExtendedLetters(*font, options.file))
        session.errors.add("the extended font " + damaged + " is damaged, and not used");
    const ScopedMoment moment(options.at);
    const std::vector<Input> inputs = FindInputs(options.playfiles, InputKind::playfile, session.errors);
    Headings headings(options.playfiles, session.out);
    return WithStoredCommands(session.errors, [&](const CommandTable& commands) {
        return ForEachInput(inputs, session, [&](const Input& input) {
            headings.print(input.path);
            return checkFor(input.path, *font, commands, options, session);
        });
    });
}

void addMakeCommand(CLI::App& font, Session& session, const std::shared_ptr<FontOptions>& options) {
    CLI::App& command =
        AddCommand(font, "make", "Makes a font from pictures of its letters, or from a BDF font",
                   "vistrel font make fonts/6x8.txt bin/16x16.cmd --size 16x16", session, options, &make);
    command
        .add_option("SOURCE", options->source,
                    R"(The pictures, "#" and "." under the code of each letter; or a BDF font)")
        ->type_name(kFileValue)
        ->required();
    command.add_option("FILE", options->file, R"(The font to write; "-" for standard output)")
        ->type_name(kFontValue)
        ->required();
    AddSizeOption(command, options->size, kLargestCellSide,
                  "Size to enlarge the letters to; its height must be a multiple of theirs");
    CLI::Option* header =
        command.add_flag("--header", options->header,
                         "Writes size and characters, too. This is the default, except for fonts with "
                         "the name of a numbered one, which cannot have them");
    command
        .add_flag("--no-header", options->noHeader,
                  "Writes only the letters 32 to 127. Who reads the font must know its size")
        ->excludes(header);
    command
        .add_flag(
            "--extended", options->extended,
            "Writes an extended font: the letters beyond 127, for fonts that lack them. FILE ends in .CFF; "
            "its index is written beside it")
        ->excludes(header)
        ->excludes("--no-header");
    AddOutputOptions(command, options->output, ExistingFiles::replacedIfAlike);
}

} // namespace

void SetUpFontCommand(CLI::App& font, Session& session) {
    const auto options = std::make_shared<FontOptions>();
    font.require_subcommand(1);
    const auto add = [&](const char* name, auto run, const char* description, const char* example) {
        return &AddCommand(font, name, description, example, session, options, run);
    };
    const auto addSize = [&](CLI::App& command, const char* description) {
        AddSizeOption(command, options->size, kLargestCellSide, description);
    };
    const char* const sizeOfFont =
        "Size of the letters, for a font without a header; known for fonts with the name of a numbered one";

    CLI::App* showCommand =
        add("show", &show, "Shows all letters of a font", "vistrel font show bin/6x8.cmd");
    showCommand->add_option("FILE", options->file, "The font")->type_name(kFontValue)->required();
    addSize(*showCommand, sizeOfFont);
    CLI::Option* json = showCommand->add_flag("--json", options->json, "Prints the letters' rows of dots");
    showCommand->add_flag("--source", options->asSource, R"(Prints pictures that "make" takes)")
        ->excludes(json);

    addMakeCommand(font, session, options);

    CLI::App* exportCommand =
        add("export", &exportFont, "Writes a font for other programs (BDF), or a picture of all its letters",
            "vistrel font export bin/6x8.cmd --out 6x8.bdf");
    exportCommand->add_option("FILE", options->file, "The font")->type_name(kFontValue)->required();
    addSize(*exportCommand, sizeOfFont);
    AddOutOption(*exportCommand, options->output, "File to write, ending in .bdf or .png; \"-\" prints BDF")
        ->required();
    AddOutputOptions(*exportCommand, options->output, ExistingFiles::replaced);

    CLI::App* checkCommand =
        add("check", &check,
            "Prints the characters that playfiles need and a font lacks, with codes replaced as in previews",
            "vistrel font check bin/6x8.cmd --for harbour.playfile");
    checkCommand->add_option("FILE", options->file, "The font")->type_name(kFontValue)->required();
    AddInputOptions(*checkCommand, options->playfiles, "--for", "A playfile; may be given several times")
        ->required()
        ->allow_extra_args(false); // the font may follow
    addSize(*checkCommand, sizeOfFont);
    AddMomentOption(*checkCommand, options->at);
    AddAnswerOptions(*checkCommand, options->answers);
}

} // namespace qrtVistrelClasses4
