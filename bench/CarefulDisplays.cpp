#include "bench/CarefulDisplays.h"

#include "bench/CarefulText.h"
#include "bench/WholeFile.h"

namespace qrtVistrelClasses4::bench {
namespace {

constexpr std::size_t kTypicalSign = 400; ///< Bytes, to reserve memory.

void get(CarefulLines& in, std::string& text) {
    if (in.take("\"\"\r\n"))
        return text.clear();
    const std::string_view line = in.line();
    text.assign(line.substr(1, line.size() - 2));
}
void get(CarefulLines& in, bool& flag) { flag = !in.take("#FALSE#\r\n") && in.line() == "#TRUE#"; }
template <class Number>
void get(CarefulLines& in, Number& number) {
    in.number(number, 0, "\r\n");
}

void put(CarefulText& out, const std::string& text) {
    out.append("\"");
    out.append(text);
    out.append("\"\r\n");
}
void put(CarefulText& out, bool flag) { out.append(flag ? "#TRUE#\r\n" : "#FALSE#\r\n"); }
void put(CarefulText& out, std::int32_t number) {
    out.appendNumber(number);
    out.append("\r\n");
}

DisplayRecord readDisplay(CarefulLines& in) {
    DisplayRecord display;
    ForEachRow(kDisplayMembers, [&](const auto& row) {
        if constexpr (requires { row.elements; }) {
            for (BrightnessSchedule& schedule : display.schedules)
                ForEachRow(row.elements, [&](const auto& part) { get(in, schedule.*part.member); });
        } else {
            get(in, display.*row.member);
            if (row.mend)
                row.mend(display);
        }
    });
    return display;
}

} // namespace

Displays LoadDisplaysCarefully(const std::string& path) {
    const WholeFile file = ReadWholeFile(path);
    Displays displays;
    displays.reserve(file.size / kTypicalSign);
    for (CarefulLines in(file.text()); !in.atEnd();)
        displays.push_back(readDisplay(in));
    return displays;
}

void SaveDisplaysCarefully(const Displays& displays, const std::string& path) {
    WriteDurably(path + ".bak", ReadWholeFile(path).text());
    CarefulText out(displays.size() * kTypicalSign);
    const auto putValue = [&](std::string_view, const auto& value) { put(out, value); };
    for (const DisplayRecord& display : displays)
        ForEachRow(kDisplayMembers, [&](const auto& row) {
            if constexpr (requires { row.elements; })
                for (const BrightnessSchedule& schedule : display.schedules)
                    ForEachValue(schedule, row.elements, putValue);
            else
                put(out, display.*row.member);
        });
    WriteDurably(path, out.text());
}

} // namespace qrtVistrelClasses4::bench
