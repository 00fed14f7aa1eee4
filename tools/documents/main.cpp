// Makes the documents about the program's commands, when the program is built:
//   vistrel_documents man PAGES OUT    the man pages, in the folder OUT
//   vistrel_documents pages PAGES      the pages of the folder PAGES (docs/commands) again
//   vistrel_documents check PAGES      fails if these are not what would be made now
//   vistrel_documents schemas OUT IDL  the JSON Schemas, in the folder OUT (docs/schema)
//   vistrel_documents check-schemas OUT IDL
#include "frame/SystemErrors.h"
#include "frame/Traced.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "tools/documents/Pages.h"
#include "tools/documents/Schemas.h"
#include "tools/program/Outputs.h"
#include "tools/program/Program.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

std::string howToMend(const std::string& target) {
    return "; cmake --build --preset release --target " + target + " mends it";
}

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
                           howToMend("command_pages"));
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

void writeSchemas(const std::string& folder, const std::string& definition) {
    for (const Schema& schema : Schemas(contentOf(definition)))
        write(JoinPath(folder, schema.fileName), schema.text);
}

void checkSchemas(const std::string& folder, const std::string& definition, ErrorLines& errors) {
    for (const Schema& schema : Schemas(contentOf(definition))) {
        errors.about(JoinPath(folder, schema.fileName));
        if (contentOf(JoinPath(folder, schema.fileName)) != schema.text)
            errors.add("is not what reading and writing follow" + howToMend("schemas"));
    }
}

ExitCode make(const std::vector<std::string>& arguments, Session& session) {
    ProgramOptions options;
    const auto program = MakeProgram(options);
    const std::string task = arguments.empty() ? "" : arguments.front();
    const bool isAboutSchemas = task == "schemas" || task == "check-schemas";
    if (arguments.size() != (task == "man" || isAboutSchemas ? 3 : 2)) {
        session.errors.add("the arguments are man PAGES OUT, pages PAGES, check PAGES, schemas OUT IDL, or "
                           "check-schemas OUT IDL");
        return ExitCode::wrongUsage;
    }
    const Documents documents(ModelOf(*program, session), arguments[1]);
    if (task == "man")
        documents.writeManPages(arguments[2]);
    else if (task == "pages")
        documents.writePages();
    else if (task == "schemas")
        writeSchemas(arguments[1], arguments[2]);
    else if (isAboutSchemas)
        checkSchemas(arguments[1], arguments[2], session.errors);
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
