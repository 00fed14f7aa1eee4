// What only an inspection of a machine asks of it.
#pragma once

#include "platform/SystemError.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

/// Of programs and libraries, by the number of bits.
enum class Bitness : std::uint8_t { bits32 = 32, bits64 = 64 };

/// The bitness of this program.
inline constexpr Bitness kOwnBitness =
    sizeof(void*) == sizeof(std::uint64_t) ? Bitness::bits64 : Bitness::bits32;

/// Whom a registration is for. That of a user hides the one for all users.
enum class RegisteredFor : std::uint8_t { thisUser, allUsers };

/// A key of the system's registry, as programs of one bitness see it.
struct RegistrationKey {
    Bitness view = kOwnBitness;
    RegisteredFor whom = RegisteredFor::allUsers;
    std::string path; ///< Parts are separated by "\".
};

/// What a program or library says about itself.
struct ModuleFacts {
    std::optional<Bitness> bitness; ///< No value for other processors.
    std::string version;            ///< "4.0.0"; empty if it has none.
};

/// Questions about a machine. The answers change nothing there.
class Inspection {
public:
    virtual ~Inspection() = default;

    /// Name and version of the system, for people.
    virtual std::string systemName() = 0;
    /// `none` if this user may make files in the existing folder `folder`.
    virtual SystemError mayAddTo(const std::string& folder) = 0;

    /// The bitnesses that the system's registry has a view for, this program's own first. None on systems
    /// without a registry; the next functions are not called there.
    virtual std::vector<Bitness> registryViews() { return {}; }
    /// The text of the key's default value. No value if there is none.
    virtual std::optional<std::string> registered(const RegistrationKey& /*key*/) { return std::nullopt; }
    /// `none` if this user may change the key, or make it if it is missing.
    virtual SystemError mayChange(const RegistrationKey& /*key*/) { return SystemError::unsupported; }
    /// What is in the header of a program or library. A file that is neither has no bitness and no version.
    virtual Result<ModuleFacts> factsOf(const std::string& /*path*/) { return SystemError::unsupported; }
};

} // namespace qrtVistrelClasses4
