#include "platform/foundation/FileReading.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

TEST(FileReading, ReadsEveryByte) {
    const support::TemporaryFolder folder;
    const std::string text = std::string("a\0b\r\n", 5) + std::string(100'000, 'x');
    const Result<std::string> read = readWholeFile(folder.write("A", text));
    ASSERT_TRUE(read);
    EXPECT_EQ(read.value(), text);
    EXPECT_EQ(readWholeFile(folder.write("Empty", "")).value(), "");
    std::string used = "what another file left";
    EXPECT_FALSE(readWholeFile(folder.write("B", "b"), used));
    EXPECT_EQ(used, "b");
    EXPECT_NE(readWholeFile("/proc/self/maps").value(), "") << "a file that does not know its size";
}

TEST(FileReading, NamesTheFileAndTheReasonWhenItCannot) {
    const support::TemporaryFolder folder;
    std::filesystem::create_directory(folder.path() / "Folder");
    ASSERT_EQ(mkfifo((folder.path() / "Pipe").c_str(), 0600), 0); // nobody waits for its other end
    const auto errorOf = [&](const char* name) { return readWholeFile(folder.path() / name).failure().what; };
    EXPECT_EQ(errorOf("Gone.json"), "The file “Gone.json” couldn’t be opened: No such file or directory");
    EXPECT_EQ(errorOf("Folder"), "The file “Folder” couldn’t be opened: it is a folder");
    EXPECT_EQ(errorOf("Pipe"), "The file “Pipe” couldn’t be opened: it is not a regular file");
    std::filesystem::resize_file(folder.write("Vast", ""), std::uintmax_t{1} << 43); // holds no byte on the disk
    EXPECT_EQ(errorOf("Vast"), "The file “Vast” couldn’t be opened: File too large");
}
