#include "platform/posix/PosixCalendar.h"

#include <iconv.h>
#include <langinfo.h>
#include <locale.h>

#include <algorithm>
#include <cctype>
#include <memory>
#include <type_traits>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

struct FreeLocale {
    void operator()(locale_t locale) const { ::freelocale(locale); }
};
using OwnedLocale = std::unique_ptr<std::remove_pointer_t<locale_t>, FreeLocale>;

/// Converts texts to Windows-1252.
class Converter {
public:
    explicit Converter(const char* encoding) : handle_(::iconv_open("WINDOWS-1252", encoding)) {}
    ~Converter() {
        if (isUsable())
            ::iconv_close(handle_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool isUsable() const {
        return handle_ != reinterpret_cast<iconv_t>(-1); // NOLINT(performance-no-int-to-ptr): by definition
    }
    /// Returns whether the code page has every character of `text`; only then is it converted.
    bool convert(std::string& text) const {
        std::string given = text;
        std::string converted(given.size(), '\0'); // no encoding has characters of less than a byte
        char* from = given.data();
        char* to = converted.data();
        std::size_t left = given.size();
        std::size_t room = converted.size();
        // Some systems replace characters that the page lacks, and return their number.
        if (::iconv(handle_, &from, &left, &to, &room) != 0)
            return false;
        converted.resize(converted.size() - room);
        text = std::move(converted);
        return true;
    }

private:
    iconv_t handle_;
};

template <std::size_t size>
void fill(std::array<std::string, size>& names, locale_t locale, nl_item first) {
    for (nl_item offset = 0; std::string & name : names)
        name = ::nl_langinfo_l(first + offset++, locale);
}

/// The character between the first two parts of a format like "%d.%m.%Y".
std::string separatorOf(const std::string& format, const std::string& usual) {
    for (std::size_t i = 0; i + 1 < format.size(); ++i)
        if (format[i] == '%')
            ++i;
        else if (std::ispunct(static_cast<unsigned char>(format[i])))
            return format.substr(i, 1);
    return usual;
}

/// The names of a locale in its own encoding.
CalendarNames namesOf(locale_t locale) {
    CalendarNames names = EnglishCalendarNames();
    fill(names.months, locale, MON_1);
    fill(names.shortMonths, locale, ABMON_1);
    fill(names.weekdays, locale, DAY_1);
    names.morning = ::nl_langinfo_l(AM_STR, locale);
    names.afternoon = ::nl_langinfo_l(PM_STR, locale);
    return names;
}

} // namespace

CalendarNames AnsiCalendarNames(const CalendarNames& names, const char* encoding) {
    CalendarNames converted = names;
    const Converter converter(encoding);
    const auto convert = [&](std::string& text) { return converter.convert(text); };
    const bool isWhole = converter.isUsable() && std::ranges::all_of(converted.months, convert) &&
                         std::ranges::all_of(converted.shortMonths, convert) &&
                         std::ranges::all_of(converted.weekdays, convert) && convert(converted.morning) &&
                         convert(converted.afternoon);
    return isWhole ? converted : EnglishCalendarNames();
}

CalendarNames PosixCalendarNames(const char* name) {
    const OwnedLocale locale(::newlocale(LC_CTYPE_MASK | LC_TIME_MASK, name, nullptr));
    if (!locale)
        return EnglishCalendarNames();
    CalendarNames names = AnsiCalendarNames(namesOf(locale.get()), ::nl_langinfo_l(CODESET, locale.get()));
    names.dateSeparator = separatorOf(::nl_langinfo_l(D_FMT, locale.get()), names.dateSeparator);
    names.timeSeparator = separatorOf(::nl_langinfo_l(T_FMT, locale.get()), names.timeSeparator);
    return names;
}

} // namespace qrtVistrelClasses4
