#include "common/text_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "common/file_replacement.h"
#include "common/text.h"

namespace corvane::common {
namespace {

namespace fs = std::filesystem;

class TextFile : public testing::Test {
  protected:
    TextFile() { fs::create_directories(folder_); }
    ~TextFile() override { fs::remove_all(folder_); }

    fs::path folder_ = fs::path(testing::TempDir()) /
                       testing::UnitTest::GetInstance()->current_test_info()->name();
};

TEST_F(TextFile, AFileIsReplacedAsAWholeAndNothingElseStays) {
    const fs::path path = folder_ / "a.txt";
    ASSERT_EQ(WriteTextFile(path, "old"), std::nullopt);
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
    const fs::path link = folder_ / "link.txt";
    fs::create_symlink(path, link);
    EXPECT_EQ(WriteTextFile(link, std::string("new\0text", 8)), std::nullopt);
    EXPECT_EQ(*ReadTextFile(path), std::string("new\0text", 8));
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()), 2);
}

TEST_F(TextFile, FailuresSayWhyAndLeaveTheOldFile) {
    EXPECT_EQ(ReadTextFile(folder_ / "none").error, "No such file or directory");
    EXPECT_EQ(ReadTextFile(folder_).error, "Is a directory");
    EXPECT_EQ(WriteTextFile(folder_, "x"), "Is a directory");
    EXPECT_EQ(WriteTextFile(folder_ / "none" / "x", "x"), "No such file or directory");
    EXPECT_EQ(WriteTextFile("/dev/full", "x"), "No space left on device");
    fs::create_directories(folder_ / "empty");
    EXPECT_EQ(WriteTextFile(folder_ / "empty", "x"), "Is a directory");
    fs::create_symlink("loop", folder_ / "loop");
    EXPECT_EQ(WriteTextFile(folder_ / "loop", "x"), "Too many levels of symbolic links");
    // It opens, and its first byte cannot be read.
    fs::create_symlink("/proc/self/mem", folder_ / "unreadable");
    EXPECT_EQ(ReadTextFile(folder_ / "unreadable").error, "Input/output error");
    // Nobody writes into the one, the other has no end.
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(ReadTextFile(folder_ / "pipe").error, "Not a regular file");
    EXPECT_EQ(ReadTextFile("/dev/zero").error, "Not a regular file");
    EXPECT_EQ(ReadTextFileOrPipe("/dev/zero").error, "Not a regular file");
}

TEST_F(TextFile, WritersOfOneFileDoNotMeet) {
    const fs::path path = folder_ / std::string(250, 'n');
    fs::create_symlink("made", folder_ / "dangling");
    FileReplacement first;
    FileReplacement second;
    ASSERT_EQ(first.Open(path), std::nullopt);
    ASSERT_EQ(second.Open(path), std::nullopt);
    EXPECT_EQ(first.Write("first"), std::nullopt);
    EXPECT_EQ(second.Write("second one"), std::nullopt);
    EXPECT_EQ(second.Commit(), std::nullopt);
    EXPECT_EQ(*ReadTextFile(path), "second one");
    EXPECT_EQ(first.Commit(), std::nullopt);
    EXPECT_EQ(*ReadTextFile(path), "first");
    EXPECT_EQ(WriteTextFile(folder_ / "dangling", "text"), std::nullopt);
    EXPECT_EQ(*ReadTextFile(folder_ / "made"), "text");
    EXPECT_TRUE(fs::is_symlink(folder_ / "dangling"));
    ASSERT_EQ(FileReplacement().Open(folder_ / "dropped"), std::nullopt);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()), 3);
}

TEST(Text, LinesEndAtAnyLineEnd) {
    using Lines = std::vector<std::string_view>;
    EXPECT_EQ(SplitLines(""), Lines{});
    EXPECT_EQ(SplitLines("a\r\nb\nc\rd"), (Lines{"a", "b", "c", "d"}));
    EXPECT_EQ(SplitLines("a\r\r\n\n"), (Lines{"a", "", ""}));
    EXPECT_EQ(WithCrLf("a\nb\r\nc\r"), "a\r\nb\r\nc\r\n");
    EXPECT_EQ(WithLf("a\r\n\rb"), "a\n\nb");
    EXPECT_EQ(ToUpper("az\xE4_9"), "AZ\xE4_9");
    EXPECT_EQ(Trim("  a b "), "a b");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(TrimRight(" a\t "), " a\t");
}

}  // namespace
}  // namespace corvane::common
