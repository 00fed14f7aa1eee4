// The list of signs ("displays") of a site.
#pragma once

#include "displays/DisplayRecord.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace qrtVistrelClasses4 {

class OutputFile;

/// The signs that the application knows, and the cursor that its properties address. Signs and brightness
/// schedules are numbered from 1. Texts are 8-bit characters of the ANSI code page, passed through unchanged.
/// One thread at a time.
///
/// Every member traps its errors: the error is reported, the result is 0, "" or false, and the list stays as
/// it was, unless told otherwise.
class DisplayDatabaseClass {
public:
    /// One sign without a name, which does not count, under the cursor; no schedule selected.
    DisplayDatabaseClass();
    ~DisplayDatabaseClass();
    DisplayDatabaseClass(const DisplayDatabaseClass&) = delete;
    DisplayDatabaseClass& operator=(const DisplayDatabaseClass&) = delete;

    static constexpr std::string_view ClassName() { return "DisplayDatabaseClass"; }

    /// Always 0: lists of signs draw no identity number.
    std::int32_t ClassDebugID() const { return 0; }

    // The list. Nothing here moves the cursor.

    /// Number of the last sign; 0 when that one has no name, however many have one before it.
    std::int16_t TotalDisplays();
    /// Number of the first sign of that name, letters taken without case; -1 for none. Names are compared as
    /// stored, so that a sign named "12" is found as "#12" only. Letters are those of Windows-1252.
    std::int16_t FindDisplayByName(const std::string& theName);
    /// Number of a new sign behind the last; -1 when the name is empty or taken. A last record without a name
    /// counts as no list: the new name then goes to sign 1, which keeps all else, and the others go.
    std::int16_t AddNewDisplay(const std::string& DisplayName);
    /// Takes a sign out; the only one is emptied instead. A number outside the list does nothing. Always
    /// false: callers look at `TotalDisplays`.
    bool RemoveDisplay(std::int16_t displayNumber);
    /// Number of a new sign behind the last, equal to another but for its name; -1 when there is no such
    /// other, or when the new name is empty or taken.
    std::int32_t Duplicate(const std::string& OriginalDisplayName, const std::string& NewDisplayName);

    // The file. Its full name is the library's folder and the name given, which is usually "Displays.dat";
    // the argument comes back with it.

    /// Writes all signs over the file, and remembers the file for reading. The list that was there stays
    /// beside it, as name + ".bak". A failure is shown to the operator.
    void WriteAllDisplaysToDisk(std::string& sFileName);
    void WriteAllDisplaysToDisk();
    /// Reads the signs of the file remembered last, wherever it is, and only without one that of the given
    /// name. Values that old files leave empty are mended. After an error the signs read until then are the
    /// list; without a record in the file it stays as it was.
    void RetrieveAllDisplayInfoFromDisk(std::string& sFileName);
    void RetrieveAllDisplayInfoFromDisk();

    // Texts for people.

    /// "Direct Connect", "Network Connect", "Modem Connect", or "".
    std::string TranslateConnectionMethodToString(std::int16_t iConnectionMethod);
    /// How the current sign is reached: "COM1:9600", "10.0.0.5:3001".
    std::string GetConnectionInfoInString();
    /// Name of the current sign's type.
    std::string GetSignTypeDescription();
    /// Whether the current sign's firmware handles 16 x 16 fonts the newer way. Its version is told by one
    /// digit before the last point of `AppDesc`, and what follows the point: "12.10" counts as 2.10.
    bool UseNew16x16();

    // The cursors. Any value is kept; it is checked when used.

    /// Number of the sign that the properties address.
    std::int16_t CurrentDisplayNumber();
    void CurrentDisplayNumber(std::int16_t vData);
    /// Number (1 to 4) of the schedule that the properties of schedules address.
    std::int16_t CurrentBrightnessScheduleNumber();
    void CurrentBrightnessScheduleNumber(std::int16_t vData);

    // The sign under `CurrentDisplayNumber`. Outside the list: error 9. `DisplayRecord` tells what each is.

    // Identity and size.
    /// Reading and writing put "#" before a name that is a number, so that no name is taken for a number of a
    /// sign.
    std::string DisplayName();
    void DisplayName(const std::string& vData);
    /// Number of the sign type, as text. Setting a text that is no number is error 13.
    std::string DisplayType();
    void DisplayType(const std::string& vData);
    /// Size in LED pixels.
    std::int16_t DisplayHeight();
    void DisplayHeight(std::int16_t vData);
    std::int16_t DisplayWidth();
    void DisplayWidth(std::int16_t vData);
    std::int32_t FrameSize();
    void FrameSize(std::int32_t vData);
    /// Description of the sign's firmware, with its version.
    std::string AppDesc();
    void AppDesc(const std::string& vData);

    // Colours.
    bool IsDisplayColor();
    void IsDisplayColor(bool vData);
    std::string DefaultColor();
    void DefaultColor(const std::string& vData);
    std::string ColorsSupported();
    void ColorsSupported(const std::string& vData);

    // Connection.
    /// 1 direct (serial), 2 network, 3 modem.
    std::int16_t ConnectionMethod();
    void ConnectionMethod(std::int16_t vData);
    /// Serial port, or TCP port of a sign in the network.
    std::string CommPort();
    void CommPort(const std::string& vData);
    std::string BaudRate();
    void BaudRate(const std::string& vData);
    std::string PhoneNumber();
    void PhoneNumber(const std::string& vData);
    std::string IPAddress();
    void IPAddress(const std::string& vData);
    /// Address, or addresses, of the sign on its line.
    std::string DisplayIDs();
    void DisplayIDs(const std::string& vData);

    // Clock, switches and scrolling.
    bool SwitchOperated();
    void SwitchOperated(bool vData);
    std::int16_t Switch1();
    void Switch1(std::int16_t vData);
    std::int16_t Switch2();
    void Switch2(std::int16_t vData);
    bool DaylightSavingsTime();
    void DaylightSavingsTime(bool vData);
    std::int16_t TimeZoneAdjustment();
    void TimeZoneAdjustment(std::int16_t vData);
    std::int32_t ScrollPauseDelay();
    void ScrollPauseDelay(std::int32_t vData);
    std::int16_t ScrollingTextSpeed();
    void ScrollingTextSpeed(std::int16_t vData);
    bool ResetOnGetParameters();
    void ResetOnGetParameters(bool vData);
    bool TempProbeInstalled();
    void TempProbeInstalled(bool vData);
    std::int16_t TempProbeAdjust();
    void TempProbeAdjust(std::int16_t vData);

    // Blinking.
    std::int16_t BlinkRateShow();
    void BlinkRateShow(std::int16_t vData);
    std::int16_t BlinkRateClear();
    void BlinkRateClear(std::int16_t vData);
    std::string BlinkBehavior();
    void BlinkBehavior(const std::string& vData);
    std::string BlinkTimes();
    void BlinkTimes(const std::string& vData);

    // Brightness.
    std::int16_t BrightnessLevel();
    void BrightnessLevel(std::int16_t vData);
    bool LightSensorInstalled();
    void LightSensorInstalled(bool vData);
    std::int16_t LightSensorMinimum();
    void LightSensorMinimum(std::int16_t vData);
    /// Reading makes an unset one, 0, into 9.
    std::int16_t LightSensorMaximum();
    void LightSensorMaximum(std::int16_t vData);
    /// Outside every schedule.
    std::int16_t BrightnessScheduleDefaultBrightness();
    void BrightnessScheduleDefaultBrightness(std::int16_t vData);

    // The schedule under `CurrentBrightnessScheduleNumber` as well. Outside the schedules: error 9.

    std::string BrightnessScheduleXStartTime();
    void BrightnessScheduleXStartTime(const std::string& vData);
    std::string BrightnessScheduleXStopTime();
    void BrightnessScheduleXStopTime(const std::string& vData);
    std::int16_t BrightnessScheduleXBrightnessLevel();
    void BrightnessScheduleXBrightnessLevel(std::int16_t vData);

private:
    DisplayRecord& currentDisplay() { return displays_.at(currentDisplayNumber_); }
    BrightnessSchedule& currentSchedule() { return currentDisplay().schedules.at(currentScheduleNumber_); }

    template <class Value>
    Value readTraced(std::string_view name, Value DisplayRecord::*member);
    template <class Value>
    void writeTraced(std::string_view name, Value DisplayRecord::*member, const Value& vData);
    template <class Value>
    Value readUntraced(std::string_view name, Value DisplayRecord::*member);
    template <class Value>
    void writeUntraced(std::string_view name, Value DisplayRecord::*member, const Value& vData);
    template <class Value>
    Value readSchedule(std::string_view name, Value BrightnessSchedule::*member);
    template <class Value>
    void writeSchedule(std::string_view name, Value BrightnessSchedule::*member, const Value& vData);

    bool mayName(const std::string& name);
    /// The record behind the last sign; a new one, unless the last record has no name.
    DisplayRecord& append();
    void writeDisplays(std::string& sFileName);
    void writeTo(OutputFile& file);
    void readDisplays(std::string& sFileName);

    OneBasedArray<DisplayRecord> displays_;
    std::int16_t currentDisplayNumber_ = 0;
    std::int16_t currentScheduleNumber_ = 0;
    /// Name of the file that the last save did not finish, and the size that it was left with.
    std::optional<std::pair<std::string, std::uint64_t>> halfWritten_;
};

} // namespace qrtVistrelClasses4
