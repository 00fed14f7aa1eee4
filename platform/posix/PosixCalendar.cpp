#include "platform/posix/PosixCalendar.h"

#include <iconv.h>
#include <langinfo.h>
#include <locale.h>

#include <cctype>
#include <memory>
#include <type_traits>

namespace qrtVistrelClasses4 {
namespace {

struct FreeLocale {
    void operator()(locale_t locale) const { ::freelocale(locale); }
};
using OwnedLocale = std::unique_ptr<std::remove_pointer_t<locale_t>, FreeLocale>;

/// The texts of a locale, in the ANSI code page.
class LocaleTexts {
public:
    explicit LocaleTexts(locale_t locale)
        : locale_(locale),
          converter_(::iconv_open("WINDOWS-1252//TRANSLIT", ::nl_langinfo_l(CODESET, locale))) {}
    ~LocaleTexts() {
        if (isConverting())
            ::iconv_close(converter_);
    }
    LocaleTexts(const LocaleTexts&) = delete;
    LocaleTexts& operator=(const LocaleTexts&) = delete;

    /// Left as it is when the code page lacks a character of the locale's text.
    void fill(std::string& text, nl_item item) const {
        std::string given = ::nl_langinfo_l(item, locale_);
        std::string converted(given.size() * kMostForOne, '\0');
        char* from = given.data();
        char* to = converted.data();
        std::size_t left = given.size();
        std::size_t room = converted.size();
        if (!isConverting() || ::iconv(converter_, &from, &left, &to, &room) == static_cast<std::size_t>(-1))
            return;
        converted.resize(converted.size() - room);
        text = converted;
    }
    template <std::size_t size>
    void fill(std::array<std::string, size>& names, nl_item first) const {
        for (nl_item offset = 0; std::string & name : names)
            fill(name, first + offset++);
    }

private:
    bool isConverting() const {
        return converter_ !=
               reinterpret_cast<iconv_t>(-1); // NOLINT(performance-no-int-to-ptr): by definition
    }

    static constexpr std::size_t kMostForOne = 4; ///< Characters that may replace one that is missing.

    locale_t locale_;
    iconv_t converter_;
};

/// The character between the first two parts of a format like "%d.%m.%Y".
std::string separatorOf(const std::string& format, const std::string& usual) {
    for (std::size_t i = 0; i + 1 < format.size(); ++i)
        if (format[i] == '%')
            ++i;
        else if (std::ispunct(static_cast<unsigned char>(format[i])))
            return format.substr(i, 1);
    return usual;
}

} // namespace

CalendarNames PosixCalendarNames(const char* name) {
    CalendarNames names = EnglishCalendarNames();
    const OwnedLocale locale(::newlocale(LC_CTYPE_MASK | LC_TIME_MASK, name, nullptr));
    if (!locale)
        return names;
    const LocaleTexts texts(locale.get());
    texts.fill(names.months, MON_1);
    texts.fill(names.shortMonths, ABMON_1);
    texts.fill(names.weekdays, DAY_1);
    texts.fill(names.morning, AM_STR);
    texts.fill(names.afternoon, PM_STR);
    names.dateSeparator = separatorOf(::nl_langinfo_l(D_FMT, locale.get()), names.dateSeparator);
    names.timeSeparator = separatorOf(::nl_langinfo_l(T_FMT, locale.get()), names.timeSeparator);
    return names;
}

} // namespace qrtVistrelClasses4
