// The list of signs ("displays") of a site.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/LastError.h>
#include <qrtVistrelClasses4/SignList.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_map>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// Cursors, trace and error trap over a list of signs. Signs and brightness schedules are numbered from 1.
/// Texts are 8-bit characters of the ANSI code page, passed through unchanged. One thread at a time.
///
/// Every member traps its errors: the error is reported, the result is 0, "" or false, and the list stays as
/// it was unless the member says otherwise.
class DisplayDatabaseClass {
public:
    /// Makes a list of one record without a name, which does not count. The record is under the cursor; no
    /// schedule is selected.
    DisplayDatabaseClass();
    ~DisplayDatabaseClass();
    DisplayDatabaseClass(const DisplayDatabaseClass&) = delete;
    DisplayDatabaseClass& operator=(const DisplayDatabaseClass&) = delete;

    /// The list itself. It changes with this object.
    const SignList& Value() const { return list_; }

    static constexpr std::string_view ClassName() { return "DisplayDatabaseClass"; }

    /// Always 0: lists of signs have no identity number.
    std::int32_t ClassDebugID() const { return 0; }

    // The list. Nothing here moves the cursor. `SignList` has the rules.

    /// Number of the last sign; 0 if that one has no name, however many signs come before it.
    std::int16_t TotalDisplays() const;
    /// Number of the first sign of that name, in any case; -1 if there is none. Names are compared as they
    /// are stored, so that a sign named "12" is found as "#12" only. Letters are those of the system's code
    /// page; on POSIX systems, of Windows-1252.
    std::int16_t FindDisplayByName(const std::string& theName) const;
    /// Adds a sign after the last one and returns its number; -1 if the name is empty or taken. If the last
    /// record has no name, sign 1 gets the new name and keeps all other values, and the other records are
    /// removed.
    std::int16_t AddNewDisplay(const std::string& DisplayName);
    /// Removes a sign. The only sign is emptied instead. Does nothing for a number outside the list. Always
    /// returns false: callers look at `TotalDisplays`.
    bool RemoveDisplay(std::int16_t displayNumber);
    /// Adds a copy of a sign under the new name after the last sign, and returns its number; -1 if
    /// there is no such original, or if the new name is empty or taken.
    std::int32_t Duplicate(const std::string& OriginalDisplayName, const std::string& NewDisplayName);

    // The file.

    /// Writes all signs over the file `sFileName`, usually "Displays.dat", in the library's folder, and
    /// remembers that file for reading. `sFileName` comes back as its full name. The previous list is kept
    /// beside it, with ".bak" added to its name. A previous file that cannot be read to its end is kept as
    /// ".bak2" and so on. The name of such a copy is logged. A failure is shown to the operator.
    void WriteAllDisplaysToDisk(std::string& sFileName);
    /// The same with an empty file name. That is the name of the library's folder itself, so nothing is ever
    /// written: the operator is shown the error, and the folder is remembered for reading.
    void WriteAllDisplaysToDisk();
    /// Reads the signs from the remembered file, wherever it is. If no file is remembered, reads `sFileName`
    /// in the library's folder. `sFileName` comes back as the full name of the file read. Values that old
    /// files leave empty are mended. After an error, the list consists of the signs read so far. A file
    /// without a sign leaves the list as it was.
    void RetrieveAllDisplayInfoFromDisk(std::string& sFileName);
    /// The same with an empty file name: reads the remembered file, and fails if there is none.
    void RetrieveAllDisplayInfoFromDisk();

    // Texts for people.

    /// "Direct Connect", "Network Connect", "Modem Connect"; empty for an unknown method.
    std::string TranslateConnectionMethodToString(std::int16_t iConnectionMethod) const;
    /// How the current sign is reached: "COM1:9600", "10.0.0.5:3001"; empty for an unknown method.
    std::string GetConnectionInfoInString() const;
    /// Name of the current sign's type.
    std::string GetSignTypeDescription() const;
    /// True if the current sign's firmware handles 16 x 16 fonts the newer way. Its version consists of one
    /// digit before the last point of `AppDesc` and of what follows the point: "12.10" counts as 2.10.
    bool UseNew16x16() const;

    // The cursors. Any value is kept; it is checked when it is used.

    /// Number of the sign that the properties address.
    std::int16_t CurrentDisplayNumber() const;
    void CurrentDisplayNumber(std::int16_t vData);
    /// Number (1 to 4) of the schedule that the properties of schedules address.
    std::int16_t CurrentBrightnessScheduleNumber() const;
    void CurrentBrightnessScheduleNumber(std::int16_t vData);

    // The sign under `CurrentDisplayNumber`. A cursor outside the list is error 9. `DisplayRecord` says what
    // the values are.

    // Identity and size.
    /// Reading and writing put "#" before a name that is a number, so that no name is taken for the number of
    /// a sign. Reading stores such a name, so this function is not const.
    std::string DisplayName() { return readAndStore<&DisplayRecord::DisplayName>(); }
    void DisplayName(const std::string& vData) { write<&DisplayRecord::DisplayName>(vData); }
    /// Number of the sign type, as text. Setting a text that is not a number is error 13.
    std::string DisplayType() const { return read<&DisplayRecord::DisplayType>(); }
    void DisplayType(const std::string& vData) { write<&DisplayRecord::DisplayType>(vData); }
    /// Size in LED pixels.
    std::int16_t DisplayHeight() const { return read<&DisplayRecord::DisplayHeight>(); }
    void DisplayHeight(std::int16_t vData) { write<&DisplayRecord::DisplayHeight>(vData); }
    std::int16_t DisplayWidth() const { return read<&DisplayRecord::DisplayWidth>(); }
    void DisplayWidth(std::int16_t vData) { write<&DisplayRecord::DisplayWidth>(vData); }
    std::int32_t FrameSize() const { return read<&DisplayRecord::FrameSize>(); }
    void FrameSize(std::int32_t vData) { write<&DisplayRecord::FrameSize>(vData); }
    /// Description of the sign's firmware, with its version.
    std::string AppDesc() const { return read<&DisplayRecord::AppDesc>(); }
    void AppDesc(const std::string& vData) { write<&DisplayRecord::AppDesc>(vData); }

    // Colours.
    bool IsDisplayColor() const { return read<&DisplayRecord::IsDisplayColor>(); }
    void IsDisplayColor(bool vData) { write<&DisplayRecord::IsDisplayColor>(vData); }
    std::string DefaultColor() const { return read<&DisplayRecord::DefaultColor>(); }
    void DefaultColor(const std::string& vData) { write<&DisplayRecord::DefaultColor>(vData); }
    std::string ColorsSupported() const { return read<&DisplayRecord::ColorsSupported>(); }
    void ColorsSupported(const std::string& vData) { write<&DisplayRecord::ColorsSupported>(vData); }

    // Connection.
    /// 1 direct (serial), 2 network, 3 modem.
    std::int16_t ConnectionMethod() const { return read<&DisplayRecord::ConnectionMethod>(); }
    void ConnectionMethod(std::int16_t vData) { write<&DisplayRecord::ConnectionMethod>(vData); }
    /// Serial port, or TCP port of a sign in the network.
    std::string CommPort() const { return read<&DisplayRecord::CommPort>(); }
    void CommPort(const std::string& vData) { write<&DisplayRecord::CommPort>(vData); }
    std::string BaudRate() const { return read<&DisplayRecord::BaudRate>(); }
    void BaudRate(const std::string& vData) { write<&DisplayRecord::BaudRate>(vData); }
    std::string PhoneNumber() const { return read<&DisplayRecord::PhoneNumber>(); }
    void PhoneNumber(const std::string& vData) { write<&DisplayRecord::PhoneNumber>(vData); }
    std::string IPAddress() const { return read<&DisplayRecord::IPAddress>(); }
    void IPAddress(const std::string& vData) { write<&DisplayRecord::IPAddress>(vData); }
    /// Address, or addresses, of the sign on its line.
    std::string DisplayIDs() const { return read<&DisplayRecord::DisplayIDs>(); }
    void DisplayIDs(const std::string& vData) { write<&DisplayRecord::DisplayIDs>(vData); }

    // Clock, switches and scrolling.
    bool SwitchOperated() const { return read<&DisplayRecord::SwitchOperated>(); }
    void SwitchOperated(bool vData) { write<&DisplayRecord::SwitchOperated>(vData); }
    std::int16_t Switch1() const { return read<&DisplayRecord::Switch1>(); }
    void Switch1(std::int16_t vData) { write<&DisplayRecord::Switch1>(vData); }
    std::int16_t Switch2() const { return read<&DisplayRecord::Switch2>(); }
    void Switch2(std::int16_t vData) { write<&DisplayRecord::Switch2>(vData); }
    bool DaylightSavingsTime() const { return read<&DisplayRecord::DaylightSavingsTime>(); }
    void DaylightSavingsTime(bool vData) { write<&DisplayRecord::DaylightSavingsTime>(vData); }
    std::int16_t TimeZoneAdjustment() const { return read<&DisplayRecord::TimeZoneAdjustment>(); }
    void TimeZoneAdjustment(std::int16_t vData) { write<&DisplayRecord::TimeZoneAdjustment>(vData); }
    std::int32_t ScrollPauseDelay() const { return read<&DisplayRecord::ScrollPauseDelay>(); }
    void ScrollPauseDelay(std::int32_t vData) { write<&DisplayRecord::ScrollPauseDelay>(vData); }
    std::int16_t ScrollingTextSpeed() const { return read<&DisplayRecord::ScrollingTextSpeed>(); }
    void ScrollingTextSpeed(std::int16_t vData) { write<&DisplayRecord::ScrollingTextSpeed>(vData); }
    bool ResetOnGetParameters() const { return read<&DisplayRecord::ResetOnGetParameters>(); }
    void ResetOnGetParameters(bool vData) { write<&DisplayRecord::ResetOnGetParameters>(vData); }
    bool TempProbeInstalled() const { return read<&DisplayRecord::TempProbeInstalled>(); }
    void TempProbeInstalled(bool vData) { write<&DisplayRecord::TempProbeInstalled>(vData); }
    std::int16_t TempProbeAdjust() const { return read<&DisplayRecord::TempProbeAdjust>(); }
    void TempProbeAdjust(std::int16_t vData) { write<&DisplayRecord::TempProbeAdjust>(vData); }

    // Blinking.
    std::int16_t BlinkRateShow() const { return read<&DisplayRecord::BlinkRateShow>(); }
    void BlinkRateShow(std::int16_t vData) { write<&DisplayRecord::BlinkRateShow>(vData); }
    std::int16_t BlinkRateClear() const { return read<&DisplayRecord::BlinkRateClear>(); }
    void BlinkRateClear(std::int16_t vData) { write<&DisplayRecord::BlinkRateClear>(vData); }
    std::string BlinkBehavior() const { return read<&DisplayRecord::BlinkBehavior>(); }
    void BlinkBehavior(const std::string& vData) { write<&DisplayRecord::BlinkBehavior>(vData); }
    std::string BlinkTimes() const { return read<&DisplayRecord::BlinkTimes>(); }
    void BlinkTimes(const std::string& vData) { write<&DisplayRecord::BlinkTimes>(vData); }

    // Brightness.
    std::int16_t BrightnessLevel() const { return read<&DisplayRecord::BrightnessLevel>(); }
    void BrightnessLevel(std::int16_t vData) { write<&DisplayRecord::BrightnessLevel>(vData); }
    bool LightSensorInstalled() const { return read<&DisplayRecord::LightSensorInstalled>(); }
    void LightSensorInstalled(bool vData) { write<&DisplayRecord::LightSensorInstalled>(vData); }
    std::int16_t LightSensorMinimum() const { return read<&DisplayRecord::LightSensorMinimum>(); }
    void LightSensorMinimum(std::int16_t vData) { write<&DisplayRecord::LightSensorMinimum>(vData); }
    /// Reading an unset value, 0, stores 9 and returns it, so this function is not const.
    std::int16_t LightSensorMaximum() { return readAndStore<&DisplayRecord::LightSensorMaximum>(); }
    void LightSensorMaximum(std::int16_t vData) { write<&DisplayRecord::LightSensorMaximum>(vData); }
    /// Brightness outside every schedule.
    std::int16_t BrightnessScheduleDefaultBrightness() const {
        return read<&DisplayRecord::BrightnessScheduleDefaultBrightness>();
    }
    void BrightnessScheduleDefaultBrightness(std::int16_t vData) {
        write<&DisplayRecord::BrightnessScheduleDefaultBrightness>(vData);
    }

    // The schedule under `CurrentBrightnessScheduleNumber` of that sign. A cursor outside the schedules is
    // error 9.

    std::string BrightnessScheduleXStartTime() const {
        return readSchedule<&BrightnessSchedule::StartTime>();
    }
    void BrightnessScheduleXStartTime(const std::string& vData) {
        writeSchedule<&BrightnessSchedule::StartTime>(vData);
    }
    std::string BrightnessScheduleXStopTime() const { return readSchedule<&BrightnessSchedule::StopTime>(); }
    void BrightnessScheduleXStopTime(const std::string& vData) {
        writeSchedule<&BrightnessSchedule::StopTime>(vData);
    }
    std::int16_t BrightnessScheduleXBrightnessLevel() const {
        return readSchedule<&BrightnessSchedule::BrightnessLevel>();
    }
    void BrightnessScheduleXBrightnessLevel(std::int16_t vData) {
        writeSchedule<&BrightnessSchedule::BrightnessLevel>(vData);
    }

    /// Number and description of the error of the last call, see `LastError`; 0 and "" if it had none.
    /// Untraced.
    std::int32_t LastErrorNumber() const { return lastError_.number(); }
    std::string LastErrorDescription() const { return lastError_.description(); }

private:
    friend struct LastErrorAccess;

    template <const auto& table, auto member>
    using Property = typename std::remove_cvref_t<decltype(kRowOf<table, member>)>::Property;

    template <auto member>
    Property<kDisplayMembers, member> read() const {
        static_assert(!kRowOf<kDisplayMembers, member>.onGet, "reading it stores a value");
        return readRow<kRowOf<kDisplayMembers, member>.access>(kRowOf<kDisplayMembers, member>);
    }
    template <auto member>
    Property<kDisplayMembers, member> readAndStore() {
        static_assert(kRowOf<kDisplayMembers, member>.access == Access::traced);
        return readAndStoreRow(kRowOf<kDisplayMembers, member>);
    }
    template <auto member>
    void write(const Property<kDisplayMembers, member>& vData) {
        writeRow<kRowOf<kDisplayMembers, member>.access>(kRowOf<kDisplayMembers, member>, vData);
    }
    template <auto member>
    Property<kScheduleMembers, member> readSchedule() const {
        return readRow<kRowOf<kScheduleMembers, member>.access>(kRowOf<kScheduleMembers, member>);
    }
    template <auto member>
    void writeSchedule(const Property<kScheduleMembers, member>& vData) {
        writeRow<kRowOf<kScheduleMembers, member>.access>(kRowOf<kScheduleMembers, member>, vData);
    }

    // Defined for the types of rows that the tables have.
    template <Access access, class Row>
    typename Row::Property readRow(const Row& row) const;
    template <class Row>
    typename Row::Property readAndStoreRow(const Row& row);
    template <Access access, class Row>
    void writeRow(const Row& row, const typename Row::Property& vData);
    // The steps of `readRow` and `writeRow`, for what the access is while they run.
    template <Access now, class Row>
    [[gnu::noinline]] typename Row::Property readRowAs(const Row& row) const;
    template <Access now, class Row>
    [[gnu::noinline]] void writeRowAs(const Row& row, const typename Row::Property& vData);
    /// To be called after a member has got another value.
    template <class Row>
    void noteChange(const Row& row);

    /// The sign, or the brightness schedule, under the cursors of `self`.
    template <class Record, class Self>
    static auto& currentOf(Self& self);
    template <class Record>
    const Record& current() const;
    template <class Record>
    Record& current();

    /// Numbers of the signs by name, made once many names have been looked for without a change of names in
    /// between: adding thousands of signs would otherwise compare each name with all others.
    class NameIndex {
    public:
        /// What `list.find` returns.
        std::optional<std::int16_t> find(const SignList& list, const std::string& name);
        /// To be called after sign `number` has been added as the last one.
        void noteAdded(const SignList& list, std::int16_t number) noexcept;
        /// To be called after any other change of names or numbers.
        void forget() noexcept;

    private:
        using Numbers = std::unordered_map<std::string, std::int16_t>; ///< By name in upper case.
        static Numbers numbersOf(const SignList& list);

        Numbers numbers_;  ///< Empty if not made.
        int searches_ = 0; ///< Since `forget`.
    };

    bool isFree(const std::string& name) const;
    void writeDisplays(std::string& sFileName);
    void readDisplays(std::string& sFileName);

    SignList list_;
    mutable NameIndex names_;
    std::int16_t currentDisplayNumber_ = 0;
    std::int16_t currentScheduleNumber_ = 0;
    std::optional<HalfWrittenList> halfWritten_;
    mutable LastError lastError_;
};

} // namespace qrtVistrelClasses4
