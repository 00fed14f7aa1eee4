// How similar a mistyped name is to another.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Number of letters to insert, remove or change to turn one name into the other. Case is ignored.
std::size_t NameDistance(std::string_view one, std::string_view other);

/// Looks for the name that somebody may have meant.
class NearestName {
public:
    explicit NearestName(std::string_view typed) : typed_(typed) {}

    /// Considers `name`, which might have been typed as `spelling`.
    void offer(std::string_view name, std::string_view spelling);
    void offer(std::string_view name) { offer(name, name); }

    /// The name nearest to the typed one; empty if none is so near that it may be meant.
    const std::string& name() const { return name_; }
    /// "; the nearest one is NAME", or nothing.
    std::string hint() const { return name_.empty() ? "" : "; the nearest one is " + name_; }

private:
    std::string typed_;
    std::string name_;
    std::size_t distance_ = 0;
};

} // namespace qrtVistrelClasses4
