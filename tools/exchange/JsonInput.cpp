#include "tools/exchange/JsonInput.h"

#include "frame/Conversions.h"
#include "tools/exchange/ParsedText.h"
#include "tools/program/Encoding.h"
#include "tools/program/NameDistance.h"

#include <rapidjson/error/en.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <new>
#include <optional>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

/// In all lists of one text. An empty element takes far more memory than its two characters.
constexpr std::int32_t kMostElements = 1 << 20;
/// Depth of arrays and objects that are skipped.
constexpr std::size_t kDeepest = 100;
/// Keys that are longer resemble no other key.
constexpr std::size_t kLongestKey = 100;

/// The parser's own one does not notice that memory has run out.
struct CheckedAllocator {
    static void* Malloc(std::size_t size) { return Realloc(nullptr, 0, size); }
    static void* Realloc(void* original, std::size_t /*originalSize*/, std::size_t size) {
        if (size == 0) {
            Free(original);
            return nullptr;
        }
        void* const memory = std::realloc(original, size);
        if (!memory)
            throw std::bad_alloc();
        return memory;
    }
    static void Free(void* memory) { std::free(memory); }
};

struct Scalar {
    enum class Type : std::uint8_t { null, flag, number, text };
    Type type;
    std::string_view text{}; ///< In Windows-1252; of a number its digits.
    bool flag = false;
};

std::string inQuotes(std::string_view ansi) {
    constexpr std::size_t plenty = 100; // it is abridged to fewer
    return "\"" + Abridged(Utf8FromAnsi(ansi.substr(0, plenty))) + "\"";
}

std::string describe(const Scalar& scalar) {
    switch (scalar.type) {
    case Scalar::Type::null:
        return "null";
    case Scalar::Type::flag:
        return scalar.flag ? "true" : "false";
    case Scalar::Type::number:
        return Abridged(scalar.text);
    case Scalar::Type::text:
        break;
    }
    return inQuotes(scalar.text);
}

/// Why a text is not in Windows-1252, as it is not.
std::string whyNotAnsi(const DecodedText& text) {
    if (!text.lacking)
        return std::string(kNotUtf8);
    std::string character;
    AppendUtf8(character, *text.lacking);
    return WhyNotAnsi(character);
}

/// The whole number of these digits; nothing if it is none, or does not fit. "12.0" and "1e2" are whole.
template <class Integer>
std::optional<Integer> wholeNumber(std::string_view digits) {
    if (digits.size() == 1) // as most have
        return static_cast<Integer>(digits.front() - '0');
    Integer number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error == std::errc() && end == digits.data() + digits.size())
        return number;
    try {
        const double real = TextToDouble(digits);
        using Limits = std::numeric_limits<Integer>;
        if (real >= Limits::min() && real <= Limits::max() && std::trunc(real) == real)
            return static_cast<Integer>(real);
    } catch (const RuntimeError&) { // it is too large
    }
    return std::nullopt;
}

/// Where a value goes. Without a kind, it is skipped.
struct Target {
    const JsonKind* kind = nullptr;
    void* place = nullptr;
    const AllowedValues* allowed = nullptr; ///< Without it, any value of the type.

    bool allows(const auto& value) const { return !allowed || Allows(*allowed, value); }
};

/// Takes what the parser finds, and puts it where it belongs.
class RecordBuilder final : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, RecordBuilder> {
public:
    RecordBuilder(const JsonKind& kind, void* value, ErrorLines& errors, JsonChecks checks,
                  const DecodedText& decoded)
        : root_{&kind, value}, errors_(errors), checks_(checks), decoded_(decoded) {}

    // The parser's calls. A call that returns false ends the parsing.
    bool Null() { return take({Scalar::Type::null}); }
    bool Bool(bool flag) { return take({.type = Scalar::Type::flag, .flag = flag}); }
    bool RawNumber(const char* digits, rapidjson::SizeType size, bool) {
        return take({Scalar::Type::number, {digits, size}});
    }
    bool String(const char*, rapidjson::SizeType size, bool) {
        return take({Scalar::Type::text, decoded_.text(size)});
    }
    bool StartObject() { return begin(JsonForm::object); }
    bool StartArray() { return begin(JsonForm::array); }
    bool Key(const char*, rapidjson::SizeType size, bool);
    bool EndObject(rapidjson::SizeType);
    bool EndArray(rapidjson::SizeType);

private:
    /// An array or an object that has begun.
    struct Level {
        const JsonKind* kind;
        void* place;
        std::int32_t index = 0;             ///< The number of elements so far.
        std::size_t next = 0;               ///< The place of the member that probably comes next.
        std::uint64_t seen = 0;             ///< A bit for each member.
        const JsonMember* member = nullptr; ///< The one whose value comes next.
    };

    bool take(const Scalar& scalar);
    bool begin(JsonForm form);
    bool end();
    Target nextTarget();
    Target nextElement(Level& list);
    const JsonMember* memberOf(Level& object, std::string_view key);

    bool store(const Target& target, const Scalar& scalar);
    bool storeText(const Target& target, std::string_view text);
    template <class Number>
    bool storeNumber(const Target& target, std::optional<Number> number);
    bool storeReal(const Target& target, const Scalar& scalar);
    bool storeFlagInNumber(const Target& target, const Scalar& scalar);

    bool refuse(const Target& target, const std::string& given);
    /// Adds an error about the value that is being read, or about its object. Returns whether to go on.
    bool add(const std::string& text, bool isAboutObject = false);
    std::string path(bool isOfObject) const;

    Target root_;
    ErrorLines& errors_;
    JsonChecks checks_;
    const DecodedText& decoded_;
    std::vector<Level> levels_;
    std::size_t skippedDepth_ = 0; ///< In arrays and objects that are skipped.
    std::int32_t elements_ = 0;
};

std::string RecordBuilder::path(bool isOfObject) const {
    std::string text = "$";
    for (const Level& level : levels_) {
        if (level.kind->form == JsonForm::array)
            text.append("[").append(std::to_string(level.index - 1)).append("]");
        else if (!isOfObject || &level != &levels_.back())
            text.append(".").append(level.member->key);
    }
    return text;
}

bool RecordBuilder::add(const std::string& text, bool isAboutObject) {
    errors_.add(path(isAboutObject) + ": " + text);
    return errors_.count() < kMostErrorLines;
}

bool RecordBuilder::refuse(const Target& target, const std::string& given) {
    return add("takes " + ExpectedOf(*target.kind, target.allowed ? *target.allowed : AllowedValues()) +
               ", not " + given);
}

const JsonMember* RecordBuilder::memberOf(Level& object, std::string_view key) {
    const std::vector<JsonMember>& members = object.kind->members;
    if (object.next < members.size() && members[object.next].key == key)
        return &members[object.next++];
    const auto found = std::ranges::find(members, key, &JsonMember::key);
    if (found == members.end())
        return nullptr;
    object.next = static_cast<std::size_t>(found - members.begin()) + 1;
    return &*found;
}

bool RecordBuilder::Key(const char*, rapidjson::SizeType size, bool) {
    if (skippedDepth_ > 0)
        return true;
    const std::string_view key = decoded_.text(size);
    Level& object = levels_.back();
    object.member = memberOf(object, key);
    if (!object.member) {
        NearestName nearest(key.substr(0, kLongestKey));
        for (const JsonMember& member : object.kind->members)
            nearest.offer(member.key);
        return add("there is no key " + inQuotes(key) + nearest.hint(), true);
    }
    const auto bit = std::uint64_t{1} << (object.member - object.kind->members.data());
    if ((object.seen & bit) != 0)
        return add("the key is there twice");
    object.seen |= bit;
    return true;
}

Target RecordBuilder::nextElement(Level& list) {
    const JsonElements& elements = list.kind->elements;
    const std::int32_t index = list.index;
    if (index > elements.most)
        return {};
    ++list.index;
    if (index == elements.most || elements_ == kMostElements) {
        list.index = elements.most + 1; // one error is enough
        (void)add(index == elements.most
                      ? "only " + std::to_string(elements.most) + " elements are possible"
                      : "there are more than " + std::to_string(kMostElements) + " elements in all",
                  true);
        return {};
    }
    ++elements_;
    return {elements.kind, elements.make(list.place, index)};
}

Target RecordBuilder::nextTarget() {
    if (levels_.empty())
        return root_;
    Level& level = levels_.back();
    if (level.kind->form == JsonForm::array)
        return nextElement(level);
    if (!level.member)
        return {};
    // The record is not constant: it is part of the value that is being read.
    return {level.member->kind, const_cast<void*>(level.member->valueIn(level.place)),
            checks_ == JsonChecks::usual ? level.member->allowed : nullptr};
}

bool isSkipped(const Target& target) { return !target.kind; }

bool RecordBuilder::begin(JsonForm form) {
    if (skippedDepth_ > 0) {
        // The parser calls itself for each, and would take all of the stack.
        return ++skippedDepth_ < kDeepest || add("arrays and objects are nested too deeply");
    }
    Target target = nextTarget();
    if (!isSkipped(target) && form == JsonForm::object && target.kind->orObject)
        target.kind = target.kind->orObject;
    if (!isSkipped(target) && target.kind->form == form) {
        levels_.push_back({target.kind, target.place});
        return true;
    }
    ++skippedDepth_;
    return isSkipped(target) || refuse(target, form == JsonForm::array ? "an array" : "an object");
}

bool RecordBuilder::end() {
    if (skippedDepth_ > 0)
        --skippedDepth_;
    else
        levels_.pop_back();
    return true;
}

bool RecordBuilder::EndObject(rapidjson::SizeType) {
    bool goesOn = true;
    if (skippedDepth_ == 0)
        for (const JsonMember& member : levels_.back().kind->members) {
            const auto bit = std::uint64_t{1} << (&member - levels_.back().kind->members.data());
            const bool isMissing = (levels_.back().seen & bit) == 0;
            if (isMissing && member.setMissing)
                member.setMissing(levels_.back().place);
            if (isMissing && member.isRequired)
                goesOn = add("the key " + inQuotes(member.key) + " is missing", true);
        }
    return end() && goesOn;
}

bool RecordBuilder::EndArray(rapidjson::SizeType) { return end(); }

bool RecordBuilder::take(const Scalar& scalar) {
    if (skippedDepth_ > 0)
        return true;
    const Target target = nextTarget();
    return isSkipped(target) || store(target, scalar);
}

bool RecordBuilder::storeText(const Target& target, std::string_view text) {
    if (decoded_.lacking || !decoded_.isUtf8)
        return add(whyNotAnsi(decoded_));
    if (!target.kind->canHold(text))
        return add("has a character that the file cannot hold");
    auto& present = *static_cast<std::string*>(target.place);
    if (present == text)
        return true;
    present = text;
    return target.allows(present) || refuse(target, inQuotes(text));
}

template <class Number>
bool RecordBuilder::storeNumber(const Target& target, std::optional<Number> number) {
    auto& present = *static_cast<Number*>(target.place);
    if (!number || (*number != present && !target.allows(*number)))
        return false; // what a record has already, or a new one has, is always taken
    present = *number;
    return true;
}

bool RecordBuilder::storeReal(const Target& target, const Scalar& scalar) {
    std::optional<double> number;
    if (scalar.type == Scalar::Type::number) {
        try {
            number = TextToDouble(scalar.text);
        } catch (const RuntimeError&) { // it is too large
        }
    }
    return storeNumber(target, number);
}

bool RecordBuilder::storeFlagInNumber(const Target& target, const Scalar& scalar) {
    if (scalar.type == Scalar::Type::flag)
        return storeNumber(target, std::optional(std::int16_t{scalar.flag}));
    return scalar.type == Scalar::Type::number && storeNumber(target, wholeNumber<std::int16_t>(scalar.text));
}

bool RecordBuilder::store(const Target& target, const Scalar& scalar) {
    const bool isNumber = scalar.type == Scalar::Type::number;
    bool isStored = false;
    switch (target.kind->form) {
    case JsonForm::text:
        if (scalar.type == Scalar::Type::text)
            return storeText(target, scalar.text);
        break;
    case JsonForm::int16:
        isStored = isNumber && storeNumber(target, wholeNumber<std::int16_t>(scalar.text));
        break;
    case JsonForm::int32:
        isStored = isNumber && storeNumber(target, wholeNumber<std::int32_t>(scalar.text));
        break;
    case JsonForm::real:
        isStored = storeReal(target, scalar);
        break;
    case JsonForm::flag:
        isStored = scalar.type == Scalar::Type::flag;
        if (isStored)
            *static_cast<bool*>(target.place) = scalar.flag;
        break;
    case JsonForm::flagInNumber:
        isStored = storeFlagInNumber(target, scalar);
        break;
    case JsonForm::count:
        isStored = isNumber && wholeNumber<std::int32_t>(scalar.text).has_value();
        break;
    case JsonForm::ignored:
        isStored = scalar.type == Scalar::Type::text;
        break;
    default:
        break;
    }
    return isStored || refuse(target, describe(scalar));
}

/// "line 3, column 7", both from 1. A column is a character.
std::string textPlaceOf(std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, offset);
    const std::string_view inLine =
        before.substr(before.rfind('\n') + 1); // all of it if there is no line end
    const auto isStart = [](char byte) { return (static_cast<unsigned char>(byte) & 0xc0) != 0x80; };
    return "line " + std::to_string(std::ranges::count(before, '\n') + 1) + ", column " +
           std::to_string(std::ranges::count_if(inLine, isStart) + 1);
}

/// The parser's words for an error, as a clause.
std::string clauseOf(rapidjson::ParseErrorCode code) {
    std::string text = rapidjson::GetParseError_En(code);
    text.front() = static_cast<char>(std::tolower(text.front()));
    if (text.ends_with('.'))
        text.pop_back();
    return text;
}

void addSyntaxError(std::string_view text, std::size_t offset, rapidjson::ParseErrorCode code,
                    ErrorLines& errors) {
    const std::string place = textPlaceOf(text, offset) + ": ";
    const char next = offset < text.size() ? text[offset] : ' ';
    if (static_cast<unsigned char>(next) < ' ' &&
        std::string_view("\t\r\n").find(next) == std::string_view::npos)
        errors.add(place + "a control character is no part of JSON");
    else if (offset >= text.size() && code != rapidjson::kParseErrorDocumentEmpty)
        errors.add(place + "the text ends too early");
    else
        errors.add(place + clauseOf(code));
}

/// Has the number at the start of `text` taken, after the parser has given it up as too large.
void takeNumber(RecordBuilder& builder, std::string_view text) {
    const std::string_view digits = text.substr(0, text.find_first_not_of("+-.0123456789Ee"));
    (void)builder.RawNumber(digits.data(), static_cast<rapidjson::SizeType>(digits.size()), true);
}

} // namespace

bool ReadJson(const std::string& text, const JsonKind& kind, void* value, ErrorLines& errors,
              JsonChecks checks) {
    constexpr std::string_view utf8Mark = "\xef\xbb\xbf";
    constexpr unsigned flags = rapidjson::kParseNumbersAsStringsFlag | rapidjson::kParseInsituFlag;
    if (IsUtf16(text)) {
        errors.add("the text is in UTF-16; JSON is in UTF-8");
        return false;
    }
    const std::size_t before = errors.count();
    DecodedText decoded(text.size() + 1);
    ParsedText stream(text, decoded);
    for (std::size_t left = text.starts_with(utf8Mark) ? utf8Mark.size() : 0; left > 0; --left)
        stream.Take();
    CheckedAllocator allocator;
    rapidjson::GenericReader<ParsedEncoding, rapidjson::UTF8<>, CheckedAllocator> reader(&allocator);
    RecordBuilder builder(kind, value, errors, checks, decoded);
    const rapidjson::ParseResult result = reader.Parse<flags>(stream, builder);
    if (result.Code() == rapidjson::kParseErrorNumberTooBig) // which no value can have
        takeNumber(builder, std::string_view(text).substr(result.Offset()));
    else if (result.IsError() && result.Code() != rapidjson::kParseErrorTermination)
        addSyntaxError(text, result.Offset(), result.Code(), errors);
    else if (!result.IsError() && stream.Tell() < text.size()) // at a NUL
        addSyntaxError(text, stream.Tell(), rapidjson::kParseErrorDocumentRootNotSingular, errors);
    return errors.count() == before;
}

} // namespace qrtVistrelClasses4
