#include "tools/documents/Schemas.h"

#include "platform/LetterCase.h"
#include "platform/Utf8.h"
#include "tools/commands/CommandsExchange.h"
#include "tools/documents/PropertyHelp.h"
#include "tools/exchange/JsonInput.h"
#include "tools/exchange/PlayfileJson.h"
#include "tools/program/Encoding.h"
#include "tools/program/ErrorLines.h"
#include "tools/settings/SettingsExchange.h"
#include "tools/signs/SignsExchange.h"
#include <qrtVistrelClasses4/PreferencesFile.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

using nlohmann::ordered_json;

/// What the interface definition does not say, or says of the property and not of its value in JSON.
constexpr std::pair<std::string_view, std::string_view> kHelpOfKeys[] = {
    {"file", "The name of the playfile, which is ignored."},
    {"frames", "The frames of the playfile."},
    {"Lines", "The lines of the frame. Without it, a frame has one empty line."},
    {"TotalLinesAllowed", "The number of lines, which is ignored: that of Lines counts."},
    {"DisplayType", "The number of the sign type. \"vistrel signs types\" prints the names."},
    {"Schedules", "The brightness schedules, of which missing ones are those of a new record."},
    {"key", "The key of the command, as texts hold it."},
    {"bytes", "What the sign understands: pairs of hexadecimal digits, with blanks between them."},
};
constexpr std::string_view kOnlyTypes =
    "Numbers have the ranges of their types. \"vistrel check\" finds values that no sign knows.";
constexpr std::string_view kHelpOfSpares = "It has no meaning here, but is kept from file to file.";

bool isLetter(char character) { return AsciiUpper(character) >= 'A' && AsciiUpper(character) <= 'Z'; }
char asciiLower(char letter) { return static_cast<char>(AsciiUpper(letter) - 'A' + 'a'); }

/// A pattern for which the case of letters does not matter, as one for which it does.
std::string withBothCases(std::string_view pattern) {
    const auto bothOf = [](char letter) { return std::string{AsciiUpper(letter), asciiLower(letter)}; };
    std::string result;
    bool isInSet = false;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        const std::string_view rest = pattern.substr(at);
        isInSet = rest.front() == '[' || (isInSet && rest.front() != ']');
        if (rest.front() == '\\') {
            result.append(rest.substr(0, 2));
            ++at;
        } else if (!isLetter(rest.front())) {
            result += rest.front();
        } else if (!isInSet) {
            result.append("[").append(bothOf(rest.front())).append("]");
        } else if (rest.size() > 2 && rest[1] == '-') {
            for (auto* const inCase : {&AsciiUpper, &asciiLower})
                result.append({inCase(rest[0]), '-', inCase(rest[2])});
            at += 2;
        } else {
            result.append(bothOf(rest.front()));
        }
    }
    return result;
}

template <class Number>
ordered_json numberSchema(const char* type, const AllowedValues& allowed, Number unset) {
    using Limits = std::numeric_limits<Number>;
    ordered_json schema{{"type", type}};
    const double least = std::max<double>(allowed.least, Limits::lowest());
    const double most = std::min<double>(allowed.most, Limits::max());
    const auto bound = [&](const char* name, double number) {
        if constexpr (std::is_integral_v<Number>)
            schema[name] = static_cast<Number>(number);
        else if (std::abs(number) < Limits::max())
            schema[name] = number;
    };
    bound("minimum", least);
    bound("maximum", most);
    if (!Allows(allowed, unset)) // what a new record has is always taken
        schema = {{"anyOf", {{{"const", unset}}, schema}}};
    schema["default"] = unset;
    return schema;
}

/// A code unit in a regular expression.
std::string escaped(char32_t unit) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    constexpr int kMostShift = 12;
    constexpr int kBitsOfDigit = 4;
    constexpr char32_t kDigitMask = 0xF;
    std::string text = "\\u";
    for (int shift = kMostShift; shift >= 0; shift -= kBitsOfDigit)
        text += kDigits[(unit >> static_cast<unsigned>(shift)) & kDigitMask];
    return text;
}

char32_t characterOf(const std::string& ansi) {
    const std::string utf8 = Utf8FromAnsi(ansi);
    std::string_view rest = utf8;
    return TakeUtf8Character(rest).value();
}

/// A regular expression for texts of the characters that a file can hold.
std::string patternOfHeld(const JsonKind& kind) {
    std::set<char32_t> units;
    for (int code = 0; code <= std::numeric_limits<unsigned char>::max(); ++code)
        if (const std::string ansi(1, static_cast<char>(code)); kind.canHold(ansi))
            units.insert(characterOf(ansi));
    std::string ranges;
    for (auto first = units.begin(); first != units.end();) {
        auto last = first;
        while (std::next(last) != units.end() && *std::next(last) == *last + 1)
            ++last;
        ranges += escaped(*first);
        if (last != first)
            ranges.append("-").append(escaped(*last));
        first = std::next(last);
    }
    return "^[" + ranges + "]*$";
}

/// Makes the schemas of one kind of file.
class SchemaMaker {
public:
    SchemaMaker(const PropertyHelp& help, JsonChecks checks) : help_(help), checks_(checks) {}

    /// A whole schema, after the keys that it begins with. `value` is as for `schemaOf`.
    void complete(ordered_json& schema, const JsonKind& kind, const void* value) {
        const ordered_json values = schemaOf(kind, value, AllowedValuesOf({}));
        schema["$defs"]["text"] = {{"type", "string"}, {"pattern", patternOfTexts_}};
        schema.update(values);
    }

private:
    /// `value` is a new one, whose lists have an element.
    ordered_json schemaOf(const JsonKind& kind, const void* value, const AllowedValues& allowed) {
        switch (kind.form) {
        case JsonForm::text:
            return textSchema(kind, allowed, *static_cast<const std::string*>(value));
        case JsonForm::int16:
            return numberSchema("integer", allowed, *static_cast<const std::int16_t*>(value));
        case JsonForm::int32:
            return numberSchema("integer", allowed, *static_cast<const std::int32_t*>(value));
        case JsonForm::real:
            return numberSchema("number", allowed, *static_cast<const double*>(value));
        case JsonForm::flag:
            return {{"type", "boolean"}, {"default", *static_cast<const bool*>(value)}};
        case JsonForm::flagInNumber:
            return flagSchema(allowed, *static_cast<const std::int16_t*>(value));
        case JsonForm::array:
            return kind.orObject
                       ? ordered_json{{"anyOf",
                                       {arraySchema(kind, value), objectSchema(*kind.orObject, value)}}}
                       : arraySchema(kind, value);
        case JsonForm::object:
            return objectSchema(kind, value);
        case JsonForm::count:
            return {{"type", "integer"}};
        default:
            return {{"type", "string"}};
        }
    }

    /// Of texts without a pattern of their own, all of which can hold the same characters.
    ordered_json textSchema(const JsonKind& kind, const AllowedValues& allowed, const std::string& unset) {
        ordered_json schema;
        if (allowed.pattern.empty()) {
            patternOfTexts_ = patternOfHeld(kind);
            schema["$ref"] = "#/$defs/text";
        } else {
            schema = {{"type", "string"},
                      {"pattern", "^(?:" + withBothCases(ExpressionOf(allowed)) + ")?$"},
                      {"maxLength", kLongestMatched}};
        }
        schema["default"] = Utf8FromAnsi(unset);
        return schema;
    }

    static ordered_json flagSchema(const AllowedValues& allowed, std::int16_t unset) {
        ordered_json schema = numberSchema("integer", allowed, unset);
        schema["type"] = {"boolean", "integer"};
        schema["default"] = unset != 0;
        return schema;
    }

    ordered_json arraySchema(const JsonKind& kind, const void* list) {
        const JsonElements& elements = kind.elements;
        return {{"type", "array"},
                {"maxItems", elements.most},
                {"items", schemaOf(*elements.kind, elements.at(list, 0), AllowedValuesOf({}))}};
    }

    ordered_json objectSchema(const JsonKind& kind, const void* record) {
        ordered_json schema{{"type", "object"}, {"additionalProperties", false}};
        for (const JsonMember& member : kind.members)
            if (member.isRequired)
                schema["required"].push_back(member.key);
        for (const JsonMember& member : kind.members) {
            ordered_json& property = schema["properties"][member.key];
            property["description"] = helpOf(member.key);
            property.update(schemaOf(*member.kind, member.valueIn(record),
                                     checks_ == JsonChecks::usual ? *member.allowed : AllowedValuesOf({})));
            if (member.isRequired && member.kind->form == JsonForm::text) {
                property["minLength"] = 1;
                property.erase("default");
            }
            if (member.pattern)
                property["pattern"] = member.pattern;
        }
        return schema;
    }

    std::string helpOf(const std::string& key) const {
        for (const auto& [own, help] : kHelpOfKeys)
            if (own == key)
                return std::string(help);
        if (key.starts_with("Spare"))
            return std::string(kHelpOfSpares);
        for (const std::string& name : {key, "BrightnessScheduleX" + key})
            if (const auto found = help_.find(name); found != help_.end())
                return found->second;
        throw RuntimeError(kNoErrorNumber, "no description of " + key + " is in the interface definition");
    }

    const PropertyHelp& help_;
    JsonChecks checks_;
    std::string patternOfTexts_;
};

template <class List>
List withOneElement() {
    List list;
    list.resize(1);
    return list;
}

} // namespace

std::vector<Schema> Schemas(std::string_view definition) {
    std::vector<Schema> schemas;
    const auto add = [&](const char* name, const char* title, const JsonKind& kind, const void* value,
                         std::string_view interfaceName, JsonChecks checks = JsonChecks::usual) {
        const PropertyHelp help = PropertyHelpOf(definition, interfaceName);
        ordered_json schema{{"$schema", "https://json-schema.org/draft/2020-12/schema"}, {"title", title}};
        if (checks == JsonChecks::typesOnly)
            schema["description"] = kOnlyTypes;
        SchemaMaker(help, checks).complete(schema, kind, value);
        schemas.push_back({name + std::string(".schema.json"), schema.dump(2) + "\n"});
    };
    auto frames = withOneElement<OneBasedArray<FrameRecord>>();
    frames.at(1).lines.resize(1);
    const auto signs = withOneElement<OneBasedArray<DisplayRecord>>();
    const auto commands = withOneElement<ExchangedCommands>();
    const Preferences preferences = DefaultPreferences({});
    add("playfile", "The frames of a playfile", KindOfPlayfile(), &frames, "_FrameInfoClass",
        JsonChecks::typesOnly);
    add("signs", "A list of signs", JsonKindOf<OneBasedArray<DisplayRecord>>::get(), &signs,
        "_DisplayDatabaseClass");
    add("commands", "The commands that users added", JsonKindOf<ExchangedCommands>::get(), &commands, "");
    add("settings", "The preferences of the application", JsonKindOf<Preferences>::get(), &preferences,
        "_SettingsInfoClass");
    return schemas;
}

} // namespace qrtVistrelClasses4
