// Makes the documents about the program's commands, when the program is built:
//   vistrel_documents man PAGES OUT    the man pages, in the folder OUT
//   vistrel_documents pages PAGES      the pages of the folder PAGES (docs/commands) again
//   vistrel_documents check PAGES      fails if these are not what would be made now
#include "frame/SystemErrors.h"
#include "frame/Traced.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "tools/documents/Pages.h"
#include "tools/program/Outputs.h"
#include "tools/program/Program.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kHowToMend = "; cmake --build --preset release --target command_pages mends it";

std::string contentOf(const std::string& path) {
    if (platform().files().kindOf(path) == EntryKind::missing)
        return {};
    return std::string(ValueOf(platform().files().read(path)).text());
}

void write(const std::string& path, std::string_view text) {
    ReplacementFile file(platform().files(), path);
    Check(file.write(text));
    Check(file.commit());
}

/// What is asked for in one run.
class Documents {
public:
    Documents(CommandModel program, std::string folder)
        : program_(std::move(program)), folder_(std::move(folder)) {}

    void writeManPages(const std::string& out) const {
        const HandWritten general = HandWrittenIn(contentOf(pathOf(program_)));
        forEachCommand([&](const CommandModel& command) {
            write(JoinPath(out, ManNameOf(command)),
                  ManPageOf(command, program_, HandWrittenIn(contentOf(pathOf(command))), general));
        });
    }

    void writePages() const {
        forEachCommand([&](const CommandModel& command) {
            const std::string now = contentOf(pathOf(command)),
                              made = PageOf(command, program_, HandWrittenIn(now));
            if (now != made)
                write(pathOf(command), made);
        });
    }

    /// Adds an error for each page that is missing, out of date, without a session, or of no command.
    void check(ErrorLines& errors) const {
        std::vector<std::string> known;
        forEachCommand([&](const CommandModel& command) {
            const std::string now = contentOf(pathOf(command));
            const HandWritten written = HandWrittenIn(now);
            errors.about(pathOf(command));
            if (now != PageOf(command, program_, written))
                errors.add((now.empty() ? "is missing" : "is not what the program's options make") +
                           std::string(kHowToMend));
            else if (!HasSession(written))
                errors.add("has no session: show commands and what they print in a ```console block below "
                           "\"Example\"");
            known.push_back(PageNameOf(command));
        });
        for (const std::string& name : platform().files().namesIn(folder_))
            if (EndingOf(name) == ".md" && std::ranges::find(known, name) == known.end()) {
                errors.about(JoinPath(folder_, name));
                errors.add("there is no such command");
            }
    }

private:
    std::string pathOf(const CommandModel& command) const { return JoinPath(folder_, PageNameOf(command)); }

    template <class Use>
    void forEachCommand(Use use) const {
        use(program_);
        std::ranges::for_each(program_.commands, use);
    }

    CommandModel program_;
    std::string folder_;
};

ExitCode make(const std::vector<std::string>& arguments, Session& session) {
    ProgramOptions options;
    const auto program = MakeProgram(options);
    const std::string task = arguments.empty() ? "" : arguments.front();
    if (arguments.size() != (task == "man" ? 3 : 2)) {
        session.errors.add("the arguments are man PAGES OUT, pages PAGES, or check PAGES");
        return ExitCode::wrongUsage;
    }
    const Documents documents(ModelOf(*program, session), arguments[1]);
    if (task == "man")
        documents.writeManPages(arguments[2]);
    else if (task == "pages")
        documents.writePages();
    else
        documents.check(session.errors);
    return session.errors.empty() ? ExitCode::done : ExitCode::failed;
}

} // namespace
} // namespace qrtVistrelClasses4

int main(int argumentCount, char** arguments) {
    using namespace qrtVistrelClasses4;
    const std::vector<std::string> typed = StartProgram(argumentCount, arguments);
    std::ostringstream out;
    Session session{out, {}, {}};
    ExitCode code = ExitCode::failed;
    if (const auto error = ErrorOf([&] { code = make(typed, session); }))
        session.errors.add(*error);
    for (const std::string& line : session.errors.lines())
        (void)platform().console().write(StandardStream::error, line + '\n');
    return static_cast<int>(code);
}
