// Records with any values that their types can have.
#pragma once

#include <qrtVistrelClasses4/MemberTable.h>

#include <array>
#include <cstdint>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>

namespace qrtVistrelClasses4 {

/// Fills members by the tables of their records. The same seed gives the same values on every machine.
class RandomRecords {
public:
    /// Texts have none of the characters `withoutThese`.
    explicit RandomRecords(const std::string& seed, std::string_view withoutThese = {})
        : without_(withoutThese) {
        std::seed_seq seeds(seed.begin(), seed.end());
        random_.seed(seeds);
    }

    /// A number below `limit`.
    unsigned below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }

    /// Lists of records without a table of `elements` stay as they are.
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
        constexpr std::string_view usual = "0,;' \n\r\t#=";
        text.resize(below(3) == 0 ? 0 : below(longest));
        for (char& character : text) {
            character = below(4) == 0 ? usual[below(usual.size())] : static_cast<char>(random_());
            if (without_.find(character) != without_.npos)
                character = 'A';
        }
    }
    void fill(bool& flag) { flag = below(2) == 0; }
    void fill(double& number) {
        constexpr unsigned quarters = 400;
        constexpr double special[] = {0.1, 1e15, 123456789012345.0, 1e300, 5e-324, -1, 1.0 / 3};
        number = below(4) == 0 ? special[below(std::size(special))] : below(quarters) / 4.0;
    }
    template <class Integer>
    requires std::is_integral_v<Integer>
    void fill(Integer& number) {
        using Limits = std::numeric_limits<Integer>;
        constexpr Integer special[] = {0, 1, -1, Limits::min(), Limits::max()};
        number = below(2) == 0 ? special[below(std::size(special))] : static_cast<Integer>(random_());
    }
    template <class Value, std::size_t count>
    void fill(std::array<Value, count>& values) {
        for (Value& value : values)
            fill(value);
    }

private:
    std::string_view without_;
    std::mt19937 random_;
};

} // namespace qrtVistrelClasses4
