#include "platform/windows/WindowsInspection.h"

#include "platform/windows/WindowsNames.h"
#include "platform/windows/WindowsSystem.h"

#include <cstring>
#include <memory>
#include <type_traits>

namespace qrtVistrelClasses4 {
namespace {

struct CloseKey {
    void operator()(HKEY key) const { ::RegCloseKey(key); }
};
using KeyHandle = std::unique_ptr<std::remove_pointer_t<HKEY>, CloseKey>;

struct FreeModule {
    void operator()(HMODULE module) const { ::FreeLibrary(module); }
};
using ModuleHandle = std::unique_ptr<std::remove_pointer_t<HMODULE>, FreeModule>;

Result<KeyHandle> openKey(const RegistrationKey& key, REGSAM access) {
    HKEY opened = nullptr;
    const HKEY root = key.whom == RegisteredFor::thisUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
    const REGSAM view = key.view == Bitness::bits64 ? KEY_WOW64_64KEY : KEY_WOW64_32KEY;
    const LSTATUS status = ::RegOpenKeyExA(root, key.path.c_str(), 0, access | view, &opened);
    if (status != ERROR_SUCCESS)
        return systemError(static_cast<DWORD>(status));
    return KeyHandle(opened);
}

/// The bitness that the header of a program or library names. No value for other files and processors.
std::optional<Bitness> bitnessOf(InputFile& file) {
    IMAGE_DOS_HEADER start{};
    struct {
        DWORD signature;
        IMAGE_FILE_HEADER header;
    } image{};
    const auto read = [&file](std::uint64_t offset, auto& value) {
        return file.readAt(offset, {reinterpret_cast<char*>(&value), sizeof value}).valueOr(0) ==
               sizeof value;
    };
    if (!read(0, start) || start.e_magic != IMAGE_DOS_SIGNATURE ||
        !read(static_cast<std::uint32_t>(start.e_lfanew), image) || image.signature != IMAGE_NT_SIGNATURE)
        return std::nullopt;
    switch (image.header.Machine) {
    case IMAGE_FILE_MACHINE_AMD64:
        return Bitness::bits64;
    case IMAGE_FILE_MACHINE_I386:
        return Bitness::bits32;
    default:
        return std::nullopt;
    }
}

/// The file version in a version resource: the fixed part follows a name that is always the same.
std::string versionIn(std::string_view resource) {
    constexpr std::size_t fixedPart = 40; // lengths and type, the name in wide characters, and a gap
    VS_FIXEDFILEINFO info{};
    if (resource.size() < fixedPart + sizeof info)
        return {};
    std::memcpy(&info, resource.data() + fixedPart, sizeof info);
    if (info.dwSignature != VS_FFI_SIGNATURE)
        return {};
    std::string version = std::to_string(HIWORD(info.dwFileVersionMS)) + '.' +
                          std::to_string(LOWORD(info.dwFileVersionMS)) + '.' +
                          std::to_string(HIWORD(info.dwFileVersionLS));
    const WORD build = LOWORD(info.dwFileVersionLS);
    return build == 0 ? version : version + '.' + std::to_string(build);
}

/// The version of a file of any bitness. None of its code runs.
std::string versionOf(const std::string& path) {
    const NoSystemBoxes noBoxes;
    const ModuleHandle module(::LoadLibraryExW(WideName(path).c_str(), nullptr,
                                               LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE));
    if (!module)
        return {};
    // Numbers in the place of names; the macros of the system's headers would make wide ones of them.
    const HRSRC found =
        ::FindResourceA(module.get(), MAKEINTRESOURCEA(VS_VERSION_INFO), MAKEINTRESOURCEA(16));
    const HGLOBAL loaded = found ? ::LoadResource(module.get(), found) : nullptr;
    const auto* bytes = loaded ? static_cast<const char*>(::LockResource(loaded)) : nullptr;
    return bytes ? versionIn({bytes, ::SizeofResource(module.get(), found)}) : "";
}

/// Unlike the usual function, this one does not name an older version that a manifest asks for.
std::string versionOfSystem() {
    using GetVersion = LONG WINAPI(OSVERSIONINFOW*);
    const HMODULE system = ::GetModuleHandleA("ntdll.dll");
    const auto get = system ? reinterpret_cast<GetVersion*>(
                                  reinterpret_cast<void*>(::GetProcAddress(system, "RtlGetVersion")))
                            : nullptr;
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    if (!get || get(&version) != 0)
        return {};
    return " " + std::to_string(version.dwMajorVersion) + '.' + std::to_string(version.dwMinorVersion) + '.' +
           std::to_string(version.dwBuildNumber);
}

} // namespace

std::string WindowsInspection::systemName() { return "Windows" + versionOfSystem(); }

SystemError WindowsInspection::mayAddTo(const std::string& folder) {
    const NoSystemBoxes noBoxes;
    constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const FileHandle opened(::CreateFileW(WideName(folder).c_str(), FILE_ADD_FILE, shareAll, nullptr,
                                          OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS,
                                          nullptr)); // which opens folders
    return opened ? SystemError::none : lastSystemError();
}

std::vector<Bitness> WindowsInspection::registryViews() {
    BOOL isOn64Bits = FALSE;
    if (kOwnBitness == Bitness::bits64)
        return {Bitness::bits64, Bitness::bits32};
    ::IsWow64Process(::GetCurrentProcess(), &isOn64Bits);
    return isOn64Bits ? std::vector{Bitness::bits32, Bitness::bits64} : std::vector{Bitness::bits32};
}

std::optional<std::string> WindowsInspection::registered(const RegistrationKey& key) {
    const auto opened = openKey(key, KEY_QUERY_VALUE);
    std::wstring text(MAX_PATH, L'\0');
    for (;;) {
        auto size = static_cast<DWORD>(text.size() * sizeof text.front());
        const LSTATUS status = opened ? ::RegGetValueW(opened.value().get(), nullptr, nullptr, RRF_RT_REG_SZ,
                                                       nullptr, text.data(), &size)
                                      : ERROR_FILE_NOT_FOUND;
        if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA)
            return std::nullopt;
        if (status == ERROR_SUCCESS)
            return NameFromWide(text.c_str());
        text.resize(text.size() * 2);
    }
}

SystemError WindowsInspection::mayChange(const RegistrationKey& key) {
    RegistrationKey nearest = key;
    for (;;) {
        const SystemError error = openKey(nearest, KEY_SET_VALUE | KEY_CREATE_SUB_KEY).error();
        const std::size_t end = nearest.path.rfind('\\');
        if (error != SystemError::fileNotFound || end == nearest.path.npos)
            return error;
        nearest.path.resize(end);
    }
}

Result<ModuleFacts> WindowsInspection::factsOf(const std::string& path) {
    const auto file = files_.openToRead(path);
    if (!file)
        return file.error();
    return ModuleFacts{bitnessOf(*file.value()), versionOf(path)};
}

} // namespace qrtVistrelClasses4
