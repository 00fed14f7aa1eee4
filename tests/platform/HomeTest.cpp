// One folder that holds all that the library keeps, on every system.
#include "Machines.h"
#include "platform/FileRegistryStore.h"

#include <gmock/gmock.h>

namespace qrtVistrelClasses4 {
namespace {

using HomeTest = OnEveryMachine<SystemMachine>;
const RegistryKey kHomeKey{RegistryHive::users, "a"};

TEST_F(HomeTest, IsInThePlaceOfAllFoldersAndIsMadeByTheFirstSetting) {
    const std::string home = JoinPath(file("a"), "b");
    const auto fresh = makePlatform({home + "/"});
    EXPECT_EQ(fresh->otherFolders(FileUse::kept), std::vector<std::string>());
    EXPECT_THAT(fresh->otherFolders(FileUse::onlyRead),
                testing::ElementsAre(testing::EndsWith(JoinPath("share", "vistrel"))));
    EXPECT_EQ(fresh->files().read(JoinPath(home, "a")).error(), SystemError::fileNotFound);
    EXPECT_EQ(fresh->files().mayWrite(JoinPath(home, "a")), SystemError::none);
    EXPECT_EQ(files().kindOf(file("a")), EntryKind::missing) << "not made by looking";
    EXPECT_EQ(fresh->libraryFolder(), home);
    EXPECT_EQ(fresh->specialFolder(kDocumentsFolder), home);
    EXPECT_EQ(fresh->specialFolder(1), std::nullopt);
    const auto profile = fresh->openProfile(fresh->systemProfilePath());
    profile->write("S", "k", "v");
    EXPECT_EQ(profile->commit(), SystemError::none);
    EXPECT_EQ(textOf(JoinPath(home, "win.ini")), "[S]\r\nk=v\r\n");
    EXPECT_EQ(fresh->registry().createKey(kHomeKey), SystemError::none);
    EXPECT_EQ(textOf(JoinPath(home, "registry")), "[HKEY_USERS\\a]\n");
    EXPECT_THAT(files().namesIn(home), testing::UnorderedElementsAre(".", "..", "registry", "win.ini"));
}

TEST_F(HomeTest, HasSettingsThatAreReadFromACutShortStoreInAnyCase) {
    put(file("REGISTRY"), "[hkey_users\\A]\n\"Name\"=\"kept\"\n\"cut");
    if (files().kindOf(file("registry")) == EntryKind::missing) // a disk that distinguishes the case
        std::filesystem::rename(file("REGISTRY"), file("registry"));
    EXPECT_EQ(platform().registry().readString(kHomeKey, "NAME").value(), "kept");
    EXPECT_EQ(platform().registry().writeString(kHomeKey, "name", "new"), SystemError::none);
    EXPECT_EQ(textOf(file("registry")), "[HKEY_USERS\\A]\n\"Name\"=\"new\"\n\"cut\n");
}

TEST(FileRegistryStore, KeepsWhatWasReadLastWhileItCannotBeRead) {
    MemoryFileSystem files;
    const std::string path = JoinPath("settings", "registry");
    FileRegistryStore store(files, path);
    for (const std::string value : {"first", "second"}) {
        files.observer = nullptr;
        files.put(path, "[HKEY_USERS\\a]\n\"name\"=\"" + value + "\"\n");
        EXPECT_EQ(store.readString(kHomeKey, "name").value(), value);
        files.observer = [](const FileOperation&) { return SystemError::deviceFailure; };
        EXPECT_EQ(store.readString(kHomeKey, "name").value(), value);
        EXPECT_EQ(store.writeString(kHomeKey, "name", value), SystemError::deviceFailure)
            << "it may have changed";
    }
}

} // namespace
} // namespace qrtVistrelClasses4
