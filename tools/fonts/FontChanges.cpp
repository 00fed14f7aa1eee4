#include "tools/fonts/FontChanges.h"

#include "tools/fonts/FontGallery.h"
#include "tools/program/Encoding.h"

#include <map>

namespace qrtVistrelClasses4 {
namespace {

using Pictures = std::map<unsigned char, Picture>;

Pictures byCode(const FontPictures& font) {
    Pictures pictures;
    for (const LetterPicture& letter : font.letters)
        pictures.emplace(letter.code, letter.rows);
    return pictures;
}

/// Letters that one change has affected.
class Letters {
public:
    explicit Letters(const char* change) : change_(change) {}
    void add(unsigned char code) {
        if (++count_ <= kMostNamed)
            names_ += (count_ > 1 ? ", " : "") + Visible(CharacterText(code));
    }
    /// Adds the change to a list of changes, unless there is no such letter.
    void addTo(std::string& changes) const {
        if (count_ > 0)
            changes += (changes.empty() ? "" : "; ") + std::string(change_) + ": " + names_ +
                       (count_ > kMostNamed ? " and " + std::to_string(count_ - kMostNamed) + " more" : "");
    }

private:
    static constexpr std::size_t kMostNamed = 16;

    const char* change_;
    std::string names_;
    std::size_t count_ = 0;
};

} // namespace

std::string ChangesOf(const FontPictures& before, const FontPictures& after) {
    const Pictures old = byCode(before), now = byCode(after);
    Letters changed("changed"), added("new"), removed("removed");
    for (const auto& [code, picture] : now)
        if (const auto found = old.find(code); found == old.end())
            added.add(code);
        else if (found->second != picture)
            changed.add(code);
    for (const auto& [code, picture] : old)
        if (!now.contains(code))
            removed.add(code);
    std::string changes;
    for (const Letters* letters : {&changed, &added, &removed})
        letters->addTo(changes);
    return changes.empty() ? "nothing has changed" : changes;
}

} // namespace qrtVistrelClasses4
