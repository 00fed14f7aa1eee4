// vistrel effects: the effect codes, which of them lists offer, and what they look like.
#include "frame/SystemErrors.h"
#include "platform/Path.h"
#include "playfile/Effects.h"
#include "tools/effects/EffectStrips.h"
#include "tools/preview/PngFile.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include "tools/program/JsonText.h"
#include "tools/program/Outputs.h"
#include "tools/program/Table.h"
#include "tools/program/ValueKinds.h"
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

struct EffectsOptions {
    bool json = false;
    std::string strips; ///< A folder; empty if no strips are wanted.
    OutputOptions output;
};

/// Writes the strips of some effects, and adds to their number.
ExitCode writeStrips(const std::vector<NamedTransition>& effects, bool appear, const std::string& folder,
                     Outputs& outputs, Session& session, std::size_t& written) {
    ExitCode result = ExitCode::done;
    for (const NamedTransition& effect : effects) {
        const std::string path =
            JoinPath(folder, (appear ? "appear-" : "disappear-") + std::to_string(effect.code) + ".png");
        if (const auto code = outputs.codeInsteadOf(path)) {
            result = *code == ExitCode::done ? result : *code;
            continue;
        }
        AboutOutput(session.errors, path);
        OutputTarget file(path, session.out);
        Check(file.error());
        WritePng(EffectStrip(effect.transition, appear), file);
        Check(file.commit());
        ++written;
    }
    return result;
}

ExitCode drawEffects(const EffectsOptions& options, Session& session) {
    Outputs outputs(options.output, ExistingFiles::replaced, session);
    outputs.makeFolders();
    std::size_t written = 0;
    const ExitCode appear =
        writeStrips(AppearingTransitions(), true, options.strips, outputs, session, written);
    const ExitCode disappear =
        writeStrips(DisappearingTransitions(), false, options.strips, outputs, session, written);
    outputs.remark(Visible(options.strips) + ": " + Counted(written, "picture"));
    return appear == ExitCode::done ? disappear : appear;
}

ExitCode showEffects(const EffectsOptions& options, Session& session) {
    if (!options.strips.empty())
        return drawEffects(options, session);
    const std::vector<Effect> effects = allEffects();
    if (options.json) {
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
    const auto options = std::make_shared<EffectsOptions>();
    SetAction(command, session, options, &showEffects);
    auto* json = command.add_flag("--json", options->json, "Prints an array of effects");
    command
        .add_option("--strips", options->strips,
                    "Writes PNG files into a folder: the stages of each effect on a small sign")
        ->type_name(kFolderValue)
        ->excludes(json);
    AddOutputOptions(command, options->output, ExistingFiles::replaced);
}

} // namespace qrtVistrelClasses4
