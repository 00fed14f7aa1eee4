// Effects in `FrameInfoClass`: names and codes, and the effect lists of the host's screens.
#include "frame/Traced.h"
#include "platform/Platform.h"
#include "playfile/Effects.h"
#include "playfile/FrameProcedures.h"
#include "settings/AppFolder.h"
#include "settings/IniFile.h"
#include "settings/LibraryFiles.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>
#include <qrtVistrelClasses4/ListControl.h>

#include <algorithm>
#include <iterator>

namespace qrtVistrelClasses4 {

std::string NewEffectsPath() {
    return PlaceToRead(GetAppFolder(), {.name = "NewEffects.ini", .use = FileUse::onlyRead});
}

bool HasNewEffects() {
    return NewEffectsLoaded || platform().files().kindOf(NewEffectsPath()) == EntryKind::file;
}

/// An effect is on if the file does not name it, or sets it to "TRUE" in capitals.
std::vector<OptionalEffect> SwitchedOnEffects() {
    PrivateIni ini;
    ini.Register("Effects", NewEffectsPath());
    std::vector<OptionalEffect> effects;
    std::ranges::copy_if(kOptionalEffects, std::back_inserter(effects), [&](const OptionalEffect& effect) {
        return ini.Read(std::string(effect.iniKey), "TRUE") == "TRUE";
    });
    return effects;
}

namespace {

void addItem(ListControl& list, std::string_view text, std::int16_t code) {
    list.AddItem(std::string(text));
    list.ItemData(list.NewIndex(), code);
}

void fillList(ListControl& list, std::int16_t FixedEffect::*code, std::string_view FixedEffect::*name,
              std::string_view OptionalEffect::*optionalText, std::string_view loopText,
              std::int16_t loopCode) {
    list.Clear();
    for (const FixedEffect& effect : kFixedEffects)
        addItem(list, effect.*name, effect.*code);
    if (NewEffectsLoaded)
        for (const OptionalEffect& effect : SwitchedOnEffects())
            if (!(effect.*optionalText).empty())
                addItem(list, effect.*optionalText, effect.code);
    addItem(list, loopText, loopCode);
}

void removeLastItem(ListControl* list) {
    if (list)
        list->RemoveItem(RoundToInt32(list->ListCount() - 1.0)); // the host may count as it likes
}

} // namespace

std::string FrameInfoClass::ConvertPrefixCodeToString(std::int16_t code) const {
    return traced(
        {lastError_, FrameFunction("ConvertPrefixCodeToString")},
        [&] { return PrefixName(code).value_or(""); }, Arg{"code", code});
}

std::string FrameInfoClass::ConvertSuffixCodeToString(std::int16_t code) const {
    return traced(
        {lastError_, FrameFunction("ConvertSuffixCodeToString")},
        [&] { return SuffixName(code).value_or(""); }, Arg{"code", code});
}

std::int16_t FrameInfoClass::ConvertPrefixStringToCode(const std::string& CodeString) const {
    return traced(
        {lastError_, FrameFunction("ConvertPrefixStringToCode")},
        [&] { return PrefixCodeOf(CodeString).value_or(0); }, Arg{"CodeString", CodeString});
}

std::int16_t FrameInfoClass::ConvertSuffixStringToCode(const std::string& CodeString) const {
    return traced(
        {lastError_, FrameFunction("ConvertSuffixStringToCode")},
        [&] { return SuffixCodeOf(CodeString).value_or(0); }, Arg{"CodeString", CodeString});
}

void FrameInfoClass::FillEffectList(ListControl* prefixList, ListControl* suffixList) {
    traced(
        {lastError_, FrameSub("FillEffectList")},
        [&] {
            if (prefixList)
                fillList(*prefixList, &FixedEffect::prefixCode, &FixedEffect::prefixName,
                         &OptionalEffect::prefixListText, kStartLoopText, kLoopBase);
            if (suffixList)
                fillList(*suffixList, &FixedEffect::suffixCode, &FixedEffect::suffixName,
                         &OptionalEffect::suffixListText, kEndLoopText, kEndLoop);
        },
        Arg{"prefixList", prefixList}, Arg{"suffixList", suffixList});
}

bool FrameInfoClass::LoadNewEffectLists(ListControl* prefixList1, ListControl* suffixList1,
                                        ListControl* prefixList2, ListControl* suffixList2) {
    return traced(
        {lastError_, FrameFunction("LoadNewEffectLists")},
        [&] {
            if (NewEffectsLoaded || platform().files().kindOf(NewEffectsPath()) != EntryKind::file ||
                NewEffectsLoaded.exchange(true))
                return false;
            FillEffectList(prefixList1, suffixList1);
            FillEffectList(prefixList2, suffixList2);
            removeLastItem(prefixList2);
            removeLastItem(suffixList2);
            return true;
        },
        Arg{"prefixList1", prefixList1}, Arg{"suffixList1", suffixList1}, Arg{"prefixList2", prefixList2},
        Arg{"suffixList2", suffixList2});
}

void FrameInfoClass::RefreshEffectLists(ListControl* prefixList, ListControl* suffixList) {
    traced(
        {lastError_, FrameSub("RefreshEffectLists")},
        [&] {
            if (LoadNewEffectLists(prefixList, suffixList, prefixList, suffixList))
                return;
            FillEffectList(prefixList, suffixList);
            removeLastItem(prefixList);
            removeLastItem(suffixList);
        },
        Arg{"prefixList", prefixList}, Arg{"suffixList", suffixList});
}

} // namespace qrtVistrelClasses4
