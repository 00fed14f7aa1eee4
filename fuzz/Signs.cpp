// Lists of signs from other programs: any text as such a list, and random lists there and back.
#include "Fuzz.h"
#include "displays/DisplayFormat.h"
#include "tools/signs/SignsExchange.h"

#include <limits>
#include <random>

namespace qrtVistrelClasses4 {
namespace {

/// The file of a list.
std::string fileOf(const SignList& list) {
    KeptBytes sink;
    DelimitedWriter out(sink);
    for (const DisplayRecord& sign : list.signs)
        WriteDisplay(out, sign);
    out.finish();
    return sink.text;
}

/// Makes signs with any values that a list can hold.
class RandomSigns {
public:
    explicit RandomSigns(const std::string& seed) {
        std::seed_seq seeds(seed.begin(), seed.end());
        random_.seed(seeds);
    }

    SignList list() {
        SignList list;
        list.signs.resize(static_cast<std::int32_t>(random_() % kMostRandomSigns));
        for (DisplayRecord& sign : list.signs) {
            fill(sign, kDisplayMembers);
            sign.DisplayName = EscapeNumericName(sign.DisplayName);
        }
        return list;
    }

private:
    static constexpr unsigned kMostRandomSigns = 6;

    template <class Record, class Table>
    void fill(Record& record, const Table& table) {
        ForEachRow(table, [&](const auto& row) {
            if constexpr (requires { row.elements; })
                for (auto& element : record.*row.member)
                    fill(element, row.elements);
            else
                fill(record.*row.member);
        });
    }

    void fill(std::string& text) {
        constexpr unsigned longest = 24;
        text.resize(random_() % 3 == 0 ? 0 : random_() % longest);
        for (char& character : text) {
            constexpr std::string_view usual = "0,;' \n\r\t#=";
            character = random_() % 4 == 0 ? usual[random_() % usual.size()] : static_cast<char>(random_());
            if (character == '"' || character == '\0')
                character = 'A';
        }
    }
    void fill(bool& flag) { flag = random_() % 2 == 0; }
    template <class Number>
    void fill(Number& number) {
        constexpr Number special[] = {0, 1, -1, std::numeric_limits<Number>::min(),
                                      std::numeric_limits<Number>::max()};
        number =
            random_() % 2 == 0 ? special[random_() % std::size(special)] : static_cast<Number>(random_());
    }

    std::mt19937 random_;
};

using Reader = std::optional<SignList> (*)(std::string_view, const SignsImport&, ErrorLines&);

/// A list that another program has comes back as it was.
void requireReturn(const SignList& list, const std::string& text, Reader read) {
    ErrorLines errors;
    const std::optional<SignList> back = read(text, {"", true, nullptr}, errors);
    Require(back.has_value(), errors.empty() ? "a list is read" : errors.lines().front().c_str());
    Require(*back == list, "it is as it was");
    Require(fileOf(*back) == fileOf(list), "and so are its bytes");
}

void requireReturn(const SignList& list) { requireReturn(list, CsvOf(list), &SignsOfCsv); }

} // namespace

void RunFuzzed(FuzzedInput input) {
    enum : unsigned { isRandom = 1, isUnchecked = 2, merges = 4 };
    const unsigned flags = input.byte();
    const SignList present = RandomSigns(input.bytes(1)).list();
    if ((flags & isRandom) != 0)
        return requireReturn(RandomSigns(input.rest()).list());
    const std::string text = input.rest();
    ErrorLines errors;
    const SignsImport import{"file", (flags & isUnchecked) != 0, (flags & merges) != 0 ? &present : nullptr};
    const std::optional<SignList> list = SignsOfCsv(text, import, errors);
    Require(list.has_value() == errors.empty(), "a list that is not taken has an error");
    if (!list)
        return;
    Require(!import.merged || list->signs.upperBound() >= present.signs.upperBound(),
            "merging loses no sign");
    requireReturn(*list);
}

} // namespace qrtVistrelClasses4
