#include "platform/foundation/FileReading.h"

#include "tests/foundation/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

TEST(FileReading, ReadsEveryByte) {
    const TemporaryFolder folder;
    const std::string text = std::string("a\0b\r\n", 5) + std::string(100'000, 'x');
    const Result<std::string> read = readWholeFile(folder.write("A", text));
    ASSERT_TRUE(read);
    EXPECT_EQ(read.value(), text);
    EXPECT_EQ(readWholeFile(folder.write("Empty", "")).value(), "");
}

TEST(FileReading, NamesTheFileAndTheReasonWhenItCannot) {
    const TemporaryFolder folder;
    const Result<std::string> missing = readWholeFile(folder.path() / "Gone.json");
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.error(), "The file “Gone.json” couldn’t be opened: No such file or directory");
    std::filesystem::create_directory(folder.path() / "Folder.json");
    EXPECT_EQ(readWholeFile(folder.path() / "Folder.json").error(),
              "The file “Folder.json” couldn’t be opened: it is a folder");
}

TEST(FileReading, DoesNotWaitForAPipe) {
    const TemporaryFolder folder;
    ASSERT_EQ(mkfifo((folder.path() / "Pipe.json").c_str(), 0600), 0);
    EXPECT_EQ(readWholeFile(folder.path() / "Pipe.json").error(),
              "The file “Pipe.json” couldn’t be opened: it is not a regular file");
}
