// JSON as the program prints it.
#pragma once

#include <nlohmann/json.hpp>

#include <ostream>
#include <string>
#include <string_view>
#include <utility>

namespace qrtVistrelClasses4 {

/// Indented, and in ASCII, so that control characters beyond ASCII in a playfile do not reach the terminal
/// either. Bytes of file names that are not UTF-8 become U+FFFD.
inline std::string JsonText(const nlohmann::ordered_json& value) {
    return value.dump(2, ' ', true, nlohmann::ordered_json::error_handler_t::replace);
}

/// Prints an array one element at a time, because a long file takes far more memory as JSON than as records.
class JsonArray {
public:
    /// `out` must outlive the array.
    explicit JsonArray(std::ostream& out) : out_(out) { out_ << '['; }
    void add(const nlohmann::ordered_json& element) {
        constexpr std::string_view opening = "[\n", closing = "\n]";
        const std::string array = JsonText(nlohmann::ordered_json::array({element})); // which indents it
        startElement() << std::string_view(array).substr(opening.size(),
                                                         array.size() - opening.size() - closing.size());
    }
    /// Returns the stream for an element that the caller prints.
    std::ostream& startElement() {
        end_ = "\n]";
        return out_ << std::exchange(separator_, ",\n");
    }
    void end() { out_ << end_; }

private:
    std::ostream& out_;
    std::string_view separator_ = "\n";
    std::string_view end_ = "]";
};

} // namespace qrtVistrelClasses4
