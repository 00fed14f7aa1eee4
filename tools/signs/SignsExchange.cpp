#include "tools/signs/SignsExchange.h"

#include "platform/LetterCase.h"
#include "tools/exchange/CsvColumns.h"
#include "tools/exchange/JsonInput.h"
#include "tools/program/Commands.h"
#include "tools/signs/SignsFile.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

using SignColumns = std::vector<CsvColumn<DisplayRecord>>;

constexpr std::string_view kNameProperty = kRowOf<kDisplayMembers, &DisplayRecord::DisplayName>.name;
/// How to get a table that can be read.
constexpr std::string_view kAsUtf8 = "; save the table as CSV UTF-8";
constexpr std::int32_t kMostSigns = Exchanged<DisplayRecord>::most;

const SignColumns& signColumns() {
    static const SignColumns columns = CsvColumnsOf<DisplayRecord>(kDisplayMembers);
    return columns;
}

/// A text in Windows-1252. Nothing, after adding the reason, if a list of signs cannot hold it.
std::optional<std::string> signText(std::string_view utf8, bool isUnchecked, ErrorLines& errors) {
    if (!IsUtf8(utf8)) {
        errors.add(std::string("is not in UTF-8").append(kAsUtf8));
        return std::nullopt;
    }
    std::optional<std::string> text = AnsiFromUtf8(utf8);
    if (!text || !isUnchecked)
        text = AnsiFromTyped(utf8, errors);
    if (!text || CanBeInSignList(*text))
        return text;
    errors.add("a list of signs cannot hold quotes or NUL characters");
    return std::nullopt;
}

/// What names are compared by.
std::string nameKey(const std::string& name) { return AnsiUpperCase(EscapeNumericName(name)); }

/// Collects signs in the order of a file.
class SignCollector {
public:
    /// `separator` is between the place of a sign and the name of a property.
    SignCollector(const SignsImport& import, std::string_view separator, ErrorLines& errors)
        : import_(import), separator_(separator), errors_(errors) {
        if (!import.merged)
            return;
        list_ = *import.merged;
        for (std::int16_t number = 1; number <= list_.count(); ++number)
            numbers_.emplace(nameKey(list_.signs.at(number).DisplayName), number);
    }

    /// What the values of a sign of that name are before any is read.
    DisplayRecord startOf(const std::string& name) const {
        const auto found = numbers_.find(nameKey(name));
        return import_.merged && found != numbers_.end() ? list_.signs.at(found->second) : SignAsLoaded({});
    }

    /// Adds a sign, or puts it in the place of the one with its name. Adds errors if it cannot be taken.
    /// `place` is where it is in the file.
    void add(DisplayRecord sign, const std::string& place) {
        about(place, kNameProperty);
        const auto [earlier, isNew] = places_.emplace(nameKey(sign.DisplayName), place);
        if (!import_.isUnchecked && sign.DisplayName.empty())
            errors_.add("a sign needs a name");
        else if (!import_.isUnchecked && !isNew)
            errors_.add(earlier->second + " has that name, too");
        if (!import_.isUnchecked)
            checkReadBack(sign, place);
        const auto found = numbers_.find(nameKey(sign.DisplayName));
        if (import_.merged && found != numbers_.end()) {
            list_.signs.at(found->second) = std::move(sign);
        } else if (list_.signs.upperBound() == kMostSigns) {
            errors_.add("a list has at most " + std::to_string(kMostSigns) + " signs");
        } else {
            list_.signs.resize(list_.signs.upperBound() + 1);
            list_.signs.at(list_.signs.upperBound()) = std::move(sign);
        }
    }

    void about(const std::string& place, std::string_view property) {
        errors_.about(
            std::string(import_.fileName).append(": ").append(place).append(separator_).append(property));
    }

    SignList takeList() { return std::move(list_); }

private:
    /// Adds an error for each value that would not be read back from the list, unless it is that of
    /// a new sign, which the file may not have asked for.
    void checkReadBack(const DisplayRecord& sign, const std::string& place) {
        const DisplayRecord unset = SignAsLoaded({});
        const DisplayRecord loaded = SignAsLoaded(sign);
        ForEachRow(kDisplayMembers, [&]<class Row>(const Row& row) {
            if constexpr (!RowOfRecords<Row>)
                if (sign.*row.member != loaded.*row.member && sign.*row.member != unset.*row.member) {
                    about(place, row.name);
                    errors_.add(NotReadBack(JsonOf(sign.*row.member), JsonOf(loaded.*row.member)));
                }
        });
    }

    const SignsImport& import_;
    std::string_view separator_;
    ErrorLines& errors_;
    SignList list_;
    std::unordered_map<std::string, std::int16_t> numbers_; ///< Of the signs before the import, by key.
    std::unordered_map<std::string, std::string> places_;   ///< Of the signs in the file, by key.
};

std::string lineName(std::size_t line) { return "line " + std::to_string(line); }

NearestName nearestColumn(const std::string& name) {
    NearestName nearest(name);
    for (const auto& column : signColumns())
        nearest.offer(column.name);
    return nearest;
}

/// The columns that the header line names, in its order. Nothing, after adding errors, if it names others.
std::vector<const SignColumns::value_type*> columnsIn(const CsvReader& reader, const SignsImport& import,
                                                      ErrorLines& errors) {
    const std::size_t before = errors.count();
    std::vector<const SignColumns::value_type*> columns;
    columns.reserve(reader.fields().size());
    errors.about(import.fileName + ": " + lineName(reader.line()));
    for (const std::string& typed : reader.fields()) {
        const std::string name(WithoutBlanks(typed));
        const auto found = std::ranges::find_if(
            signColumns(), [&](const auto& column) { return EqualIgnoringAsciiCase(column.name, name); });
        columns.push_back(found == signColumns().end() ? nullptr : &*found);
        if (!columns.back())
            errors.add("there is no property \"" + name + "\"" + nearestColumn(name).hint());
        else if (std::ranges::count(columns, columns.back()) > 1)
            errors.add("two columns have the name " + columns.back()->name);
    }
    if (std::ranges::find(columns, &signColumns().front()) == columns.end())
        errors.add("the header line needs a column " + std::string(kNameProperty));
    if (errors.count() > before)
        columns.clear();
    return columns;
}

/// Adds the signs of the lines after the header line.
void addSigns(CsvReader& reader, const std::vector<const SignColumns::value_type*>& columns,
              SignCollector& signs, const SignsImport& import, ErrorLines& errors) {
    const auto toText = [&](std::string_view utf8, ErrorLines& to) {
        return signText(utf8, import.isUnchecked, to);
    };
    const CellRules rules{import.isUnchecked, toText};
    const auto nameColumn =
        static_cast<std::size_t>(std::ranges::find(columns, &signColumns().front()) - columns.begin());
    while (!columns.empty() && reader.next()) {
        const std::vector<std::string>& fields = reader.fields();
        const std::string place = lineName(reader.line());
        if (fields.size() != columns.size()) {
            errors.about(import.fileName + ": " + place);
            errors.add("the line has " + Counted(fields.size(), "value") + ", but the header line has " +
                       Counted(columns.size(), "name"));
            continue;
        }
        DisplayRecord sign = signs.startOf(AnsiFromUtf8(fields.at(nameColumn)).value_or(""));
        const std::size_t before = errors.count();
        for (std::size_t index = 0; index < fields.size(); ++index) {
            signs.about(place, columns[index]->name);
            columns[index]->set(sign, fields[index], rules, errors);
        }
        if (errors.count() == before)
            signs.add(std::move(sign), place);
    }
}

} // namespace

bool CanBeInSignList(std::string_view ansi) {
    return ansi.find('"') == ansi.npos && ansi.find('\0') == ansi.npos;
}

std::string CsvOf(const SignList& list) {
    std::string text(kByteOrderMark);
    std::vector<std::string> fields;
    fields.reserve(signColumns().size());
    for (const auto& column : signColumns())
        fields.push_back(column.name);
    AppendCsvRecord(text, fields);
    for (const DisplayRecord& sign : list.signs) {
        std::ranges::transform(signColumns(), fields.begin(),
                               [&](const auto& column) { return column.get(sign); });
        AppendCsvRecord(text, fields);
    }
    return text;
}

std::optional<SignList> SignsOfCsv(const std::string& text, const SignsImport& import, ErrorLines& errors) {
    const std::size_t before = errors.count();
    CsvReader reader(text);
    SignCollector signs(import, ", ", errors);
    errors.about(import.fileName);
    if (IsUtf16(text))
        errors.add(std::string("the text is in UTF-16").append(kAsUtf8));
    else if (reader.next())
        addSigns(reader, columnsIn(reader, import, errors), signs, import, errors);
    else if (!reader.error())
        errors.add("there is no header line");
    if (reader.error()) {
        errors.about(import.fileName + ": " + lineName(reader.error()->line));
        errors.add(reader.error()->text);
    }
    return errors.count() == before ? std::optional(signs.takeList()) : std::nullopt;
}

std::optional<SignList> SignsOfJson(const std::string& text, const SignsImport& import, ErrorLines& errors) {
    const std::size_t before = errors.count();
    const JsonChecks checks = import.isUnchecked ? JsonChecks::typesOnly : JsonChecks::usual;
    SignCollector signs(import, ".", errors);
    SignList read;
    errors.about(import.fileName);
    // First the names are read, then the values over those that the signs have before.
    ErrorLines ignored;
    (void)ReadJson(text, read.signs, ignored, JsonChecks::typesOnly);
    for (DisplayRecord& sign : read.signs)
        sign = signs.startOf(sign.DisplayName);
    if (!ReadJson(text, read.signs, errors, checks))
        return std::nullopt;
    std::size_t index = 0;
    for (DisplayRecord& sign : read.signs) {
        sign.DisplayName = EscapeNumericName(sign.DisplayName);
        signs.add(std::move(sign), "$[" + std::to_string(index++) + "]");
    }
    return errors.count() == before ? std::optional(signs.takeList()) : std::nullopt;
}

} // namespace qrtVistrelClasses4
