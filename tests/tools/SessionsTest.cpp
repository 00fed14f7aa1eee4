// What the files in "sessions" show is what the program does.
#include "Program.h"

namespace qrtVistrelClasses4 {
namespace {

class Session : public testing::TestWithParam<const char*> {};

TEST_P(Session, RunsAsItIsWritten) { Program().play(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Of, Session,
                         testing::Values("commands", "fonts", "frames", "older", "preview", "refusals",
                                         "settings", "show", "signs"),
                         [](const auto& session) { return std::string(session.param); });

} // namespace
} // namespace qrtVistrelClasses4
