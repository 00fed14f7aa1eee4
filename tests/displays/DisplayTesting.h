// Signs that have a value of their own in every member, and their file.
#pragma once

#include "HostTest.h"
#include "displays/DisplayFormat.h"
#include <qrtVistrelClasses4/DisplayDatabaseClass.h>

#include <string>
#include <type_traits>
#include <vector>

namespace qrtVistrelClasses4 {

/// A value for each code. The values of codes up to 500 differ, but flags only in their pattern over the
/// hundreds. Reading mends nothing in a sign of the codes of one hundred.
template <class Value>
Value valueOf(int code) {
    if constexpr (std::is_same_v<Value, std::string>)
        return "text " + std::to_string(code);
    else if constexpr (std::is_same_v<Value, bool>)
        return ((code % 100 >> code / 100) & 1) != 0;
    else
        return static_cast<Value>(code * (sizeof(Value) > 2 ? -65537 : 1));
}

/// The sign whose value in line `n` of its file (from 1) has the code 100 * `number` + n.
inline DisplayRecord signOf(int number) {
    DisplayRecord sign;
    int code = 100 * number;
    const auto fill = [&]<class Value>(Value& value) { value = valueOf<Value>(++code); };
    ForEachRow(kDisplayMembers, [&](const auto& row) {
        if constexpr (requires { row.elements; })
            for (BrightnessSchedule& schedule : sign.schedules)
                ForEachRow(row.elements, [&](const auto& part) { fill(schedule.*part.member); });
        else
            fill(sign.*row.member);
    });
    return sign;
}

inline std::string fileWith(const DisplayRecord& sign) {
    struct : ByteSink {
        SystemError write(std::string_view bytes) override { return text += bytes, SystemError::none; }
        std::string text = {};
    } file;
    DelimitedWriter out(file);
    WriteDisplay(out, sign);
    out.finish();
    return file.text;
}
inline std::string fileOf(const std::vector<int>& numbers) {
    std::string text;
    for (const int number : numbers)
        text += fileWith(signOf(number));
    return text;
}

/// A list of signs and its file.
class DisplaysTest : public HostTest {
protected:
    void write(std::string fileName = "Displays.dat") { displays_.WriteAllDisplaysToDisk(fileName); }
    void read(std::string fileName = "Displays.dat") { displays_.RetrieveAllDisplayInfoFromDisk(fileName); }
    /// The text of the saved list.
    std::string saved() {
        write();
        return files().content(path_).value_or("no file");
    }
    void load(const std::string& text) {
        files().put(path_, text);
        read();
    }

    DisplayDatabaseClass displays_;
    const std::string path_ = host_.inLibrary("Displays.dat");
};

} // namespace qrtVistrelClasses4
