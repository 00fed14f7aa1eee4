// vistrel doctor: what is wrong on this machine.
#include "platform/Platform.h"
#include "tools/doctor/Checks.h"
#include "tools/program/Commands.h"
#include "tools/program/JsonText.h"

namespace qrtVistrelClasses4 {
namespace {

struct DoctorOptions {
    bool json = false;
    std::string version; ///< "4.0.0".
    const CLI::Option* home = nullptr;
};

ExitCode examine(const DoctorOptions& options, Session& session) {
    const AdvisedCommands commands(options.home->empty() ? std::nullopt
                                                         : std::optional(options.home->as<std::string>()));
    DoctorFindings findings;
    CheckProgram(options.version, findings);
    CheckServers(options.version, findings);
    CheckRights(findings);
    CheckStores(commands, findings, session.errors);
    CheckNamedFiles(commands, findings);
    CheckFonts(findings);
    if (options.json) {
        session.out << JsonText(JsonOf(findings)) << '\n';
    } else {
        PrintFindings(session.out, findings);
        if (platform().inspection().registryViews().empty())
            session.out << "The server for scripts exists on Windows only.\n";
    }
    if (const SeverityCounts counts = CountsOf(findings); counts.of(Severity::error) > 0) {
        session.errors.about("doctor");
        session.errors.add("something is damaged or missing: " + counts.text());
    }
    return ExitCode::done;
}

} // namespace

void SetUpDoctorCommand(CLI::App& command, Session& session) {
    const auto options = std::make_shared<DoctorOptions>();
    const CLI::App& parent = *command.get_parent();
    options->home = parent.get_option("--home");
    const std::string program = parent.version(); // "vistrel 4.0.0"
    options->version = program.substr(program.rfind(' ') + 1);
    SetAction(command, session, options, &examine);
    command.add_flag("--json", options->json, "Prints an array of findings");
}

} // namespace qrtVistrelClasses4
