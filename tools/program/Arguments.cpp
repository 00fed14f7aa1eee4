#include "tools/program/Arguments.h"

#include "tools/program/Help.h"

#include <algorithm>
#include <cctype>
#include <deque>
#include <iterator>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

using Words = std::deque<std::string>;

const CLI::Option* findUpwards(const CLI::App* app, const std::string& name) {
    const CLI::Option* option = nullptr;
    for (; app && !option; app = app->get_parent())
        option = app->get_option_no_throw(name);
    return option;
}

const CLI::Option* findBelow(const CLI::App& app, const std::string& name) {
    for (const CLI::App* command : CommandsBelow(app)) {
        const CLI::Option* option = command->get_option_no_throw(name);
        option = option ? option : findBelow(*command, name);
        if (option)
            return option;
    }
    return nullptr;
}

/// Moves the option in front of `words` to `target`, together with its value.
void takeOption(const CLI::Option* option, Words& words, auto& target) {
    const bool isAlone = words.front().find('=') != std::string::npos || !option ||
                         option->get_items_expected_max() == 0 || words.size() == 1;
    for (int count = isAlone ? 1 : 2; count > 0; --count) {
        target.push_back(std::move(words.front()));
        words.pop_front();
    }
}

std::size_t requiredArguments(const CLI::App& app) {
    return app
        .get_options(
            [](const CLI::Option* option) { return option->get_positional() && option->get_required(); })
        .size();
}

/// Puts `words`, which follow the name of `app`, into order.
void arrange(const CLI::App& app, Words words, std::vector<std::string>& ordered) {
    std::vector<std::string> later; // options of commands below
    std::size_t arguments = 0;
    while (!words.empty() && words.front() != kEndOfOptions) {
        const std::string word = words.front();
        if (IsOption(word)) {
            const CLI::Option* const own = findUpwards(&app, OptionName(word));
            if (const CLI::Option* below = own ? nullptr : findBelow(app, OptionName(word)))
                takeOption(below, words, later);
            else
                takeOption(own, words, ordered);
            continue;
        }
        words.pop_front();
        ordered.push_back(word);
        const CLI::App* const command =
            ++arguments > requiredArguments(app) ? CommandBelow(app, word) : nullptr;
        if (!command)
            continue;
        words.insert(words.begin(), later.begin(), later.end());
        return arrange(*command, std::move(words), ordered);
    }
    std::ranges::copy(later, std::back_inserter(ordered));
    std::ranges::copy(words, std::back_inserter(ordered));
}

/// Sets up the first command that is named.
void setUpNamed(CLI::App& program, Session& session, const std::vector<std::string>& typed) {
    Words words(typed.begin(), typed.end());
    while (!words.empty()) {
        if (IsOption(words.front())) {
            Words passed;
            takeOption(program.get_option_no_throw(OptionName(words.front())), words, passed);
        } else if (SetUpCommand(program, words.front(), session)) {
            return;
        } else {
            words.pop_front();
        }
    }
}

} // namespace

bool IsOption(const std::string& word) {
    return word.size() > 1 && word.front() == '-' && word != kEndOfOptions &&
           std::isdigit(static_cast<unsigned char>(word[1])) == 0; // a negative number
}

std::string OptionName(const std::string& option) { return option.substr(0, option.find('=')); }

std::vector<std::string> InParserOrder(CLI::App& program, Session& session,
                                       const std::vector<std::string>& typed) {
    setUpNamed(program, session, typed);
    std::vector<std::string> ordered;
    arrange(program, Words(typed.begin(), typed.end()), ordered);
    return ordered;
}

const CLI::App* CommandToExplain(CLI::App& program, Session& session, const std::vector<std::string>& typed) {
    const auto end = std::ranges::find(typed, kEndOfOptions);
    if (std::none_of(typed.begin(), end,
                     [](const std::string& word) { return word == "--help" || word == "-h"; }))
        return nullptr;
    setUpNamed(program, session, typed);
    const CLI::App* command = &program;
    for (auto word = typed.begin(); word != end; ++word)
        if (const CLI::App* below = IsOption(*word) ? nullptr : CommandBelow(*command, *word))
            command = below;
    return command;
}

} // namespace qrtVistrelClasses4
