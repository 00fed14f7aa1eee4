// vistrel effects: the effect codes, and which of them lists offer.
#include "playfile/Effects.h"
#include "tools/program/Commands.h"
#include "tools/program/JsonText.h"
#include "tools/program/Table.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>
#include <qrtVistrelClasses4/ListControl.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <limits>
#include <optional>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

/// A list of effects without a screen.
class EffectList final : public ListControl {
public:
    std::string ClassName() const override { return "EffectList"; }
    void Clear() override { items_.clear(); }
    void AddItem(const std::string& text) override { items_.push_back({text, 0}); }
    std::int32_t NewIndex() override { return ListCount() - 1; }
    void ItemData(std::int32_t index, std::int32_t data) override { item(index).code = data; }
    std::int32_t ListCount() override { return static_cast<std::int32_t>(items_.size()); }
    void RemoveItem(std::int32_t index) override {
        (void)item(index);
        items_.erase(items_.begin() + index);
    }

    std::optional<std::string> textOf(std::int32_t code) const {
        const auto found = std::ranges::find(items_, code, &Item::code);
        return found == items_.end() ? std::nullopt : std::optional(found->text);
    }

private:
    struct Item {
        std::string text;
        std::int32_t code;
    };
    Item& item(std::int32_t index) {
        if (index < 0 || index >= ListCount())
            throw RuntimeError(ErrorNumber::invalidProcedureCall);
        return items_[static_cast<std::size_t>(index)];
    }

    std::vector<Item> items_;
};

struct Effect {
    std::int16_t code;
    std::string prefixName, suffixName;
    /// The texts that lists show for it; nothing if they do not offer it.
    std::optional<std::string> prefixListText, suffixListText;
    std::string_view iniKey; ///< Its switch in "NewEffects.ini"; empty for an effect without one.
};

std::string_view iniKeyOf(std::int16_t code) {
    const auto* found = std::ranges::find(kOptionalEffects, code, &OptionalEffect::code);
    return found == kOptionalEffects.end() ? std::string_view() : found->iniKey;
}

/// Every code that has a name or is in a list.
std::vector<Effect> allEffects() {
    EffectList prefixes, suffixes, prefixesWithoutLoop, suffixesWithoutLoop;
    FrameInfoClass playfile;
    if (!playfile.LoadNewEffectLists(&prefixes, &suffixes, &prefixesWithoutLoop, &suffixesWithoutLoop))
        playfile.FillEffectList(&prefixes, &suffixes);
    std::vector<Effect> effects;
    for (std::int32_t number = 0; number <= std::numeric_limits<std::int16_t>::max(); ++number) {
        const auto code = static_cast<std::int16_t>(number);
        Effect effect{code,
                      PrefixName(code).value_or(""),
                      SuffixName(code).value_or(""),
                      prefixes.textOf(code),
                      suffixes.textOf(code),
                      iniKeyOf(code)};
        if (!effect.prefixName.empty() || !effect.suffixName.empty() || effect.prefixListText ||
            effect.suffixListText)
            effects.push_back(std::move(effect));
    }
    return effects;
}

nlohmann::ordered_json jsonOf(const Effect& effect) {
    const auto orNull = [](const std::optional<std::string>& text) {
        return text ? nlohmann::ordered_json(*text) : nlohmann::ordered_json();
    };
    return {{"code", effect.code},
            {"prefixName", effect.prefixName},
            {"suffixName", effect.suffixName},
            {"prefixListText", orNull(effect.prefixListText)},
            {"suffixListText", orNull(effect.suffixListText)},
            {"iniKey", effect.iniKey}};
}

void printTable(std::ostream& out, const std::vector<Effect>& effects) {
    Table table(
        {{"Code", Table::Align::right}, {"Appears"}, {"Disappears"}, {"Offered to"}, {"NewEffects.ini"}});
    for (const Effect& effect : effects) {
        constexpr std::int16_t firstLeftOut = kLoopBase + 3;
        if (effect.code == firstLeftOut)
            table.addRow({"...", "...", "", "", ""});
        if (effect.code >= firstLeftOut && effect.code < kLoopLimit - 1)
            continue;
        const std::string offered = effect.prefixListText && effect.suffixListText ? "appear, disappear"
                                    : effect.prefixListText                        ? "appear"
                                    : effect.suffixListText                        ? "disappear"
                                                                                   : "";
        table.addRow({std::to_string(effect.code),
                      effect.prefixName.empty() ? effect.prefixListText.value_or("") : effect.prefixName,
                      effect.suffixName, offered, std::string(effect.iniKey)});
    }
    out << table;
}

ExitCode showEffects(const bool& json, Session& session) {
    const std::vector<Effect> effects = allEffects();
    if (json) {
        auto array = nlohmann::ordered_json::array();
        for (const Effect& effect : effects)
            array.push_back(jsonOf(effect));
        session.out << JsonText(array) << '\n';
    } else {
        printTable(session.out, effects);
    }
    return ExitCode::done;
}

} // namespace

void SetUpEffectsCommand(CLI::App& command, Session& session) {
    const auto json = std::make_shared<bool>(false);
    SetAction(command, session, json, &showEffects);
    command.add_flag("--json", *json, "Prints an array of effects");
}

} // namespace qrtVistrelClasses4
