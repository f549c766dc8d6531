#include "app/source_file.h"

#include "app/translate.h"
#include "fakes.h"

namespace corvane::app {
namespace {

class SourceFileTest : public WorkbenchTest {
  public:
    SourceFileTest() { EXPECT_TRUE(StartUp()); }

    AppSettings& Settings() { return workbench->Settings(); }

    TextToSave Text(const std::string& text) {
        return [this, text] {
            ++timesTidied;
            return text;
        };
    }

    int timesTidied = 0;
};

TEST_F(SourceFileTest, TheNameComesFromTheDialog) {
    struct Case {
        const FileKind* kind;
        const char* chosen;
        const char* saved;
        const char* caption;
    };
    const Case cases[] = {
        {&kAssemblerSource, "prog.txt", "prog.asm", "Assembler - prog.asm"},
        {&kAssemblerSource, "prog", "prog.asm", "Assembler - prog.asm"},
        {&kBasicSource, "prog.old.bas", "prog.bas", "BASIC Compiler - prog.bas"},
    };
    for (const Case& c : cases) {
        SourceFile file(*c.kind, Settings(), dialogs);
        EXPECT_EQ(file.Caption(), std::string(c.kind->caption) + "UNTITLED");
        fs::remove(folder.path + c.saved);
        dialogs.texts = {folder.path + c.chosen};
        EXPECT_TRUE(file.Save(Text("a\nb\r\n")));
        EXPECT_EQ(file.Caption(), c.caption);
        EXPECT_EQ(folder.Read(c.saved), "a\r\nb\r\n");
    }
    EXPECT_EQ(dialogs.Shown()[0],
              "Save Assembler Source As|Assembler ASM files (*.asm)|*.asm|All files (*.*)|*.*|" +
                  folder.path);
}

TEST_F(SourceFileTest, NothingIsWrittenThatAPersonDeclines) {
    SourceFile file(kAssemblerSource, Settings(), dialogs);
    folder.Write("old.asm", "old");
    dialogs.texts = {std::nullopt, folder.path + "old"};
    dialogs.answers = {false};
    EXPECT_FALSE(file.SaveAs(Text("new")));
    EXPECT_FALSE(file.SaveAs(Text("new")));
    EXPECT_EQ(dialogs.Shown().back(),
              "Do you want to overwrite existing file " + folder.path + "old.asm?");
    EXPECT_EQ(folder.Read("old.asm"), "old");
    EXPECT_TRUE(file.IsUntitled());
    EXPECT_EQ(timesTidied, 0);

    dialogs.texts = {folder.path + "old"};
    dialogs.answers = {true};
    EXPECT_TRUE(file.SaveAs(Text("new")));
    EXPECT_EQ(folder.Read("old.asm"), "new");
    dialogs.Shown();
    EXPECT_TRUE(file.Save(Text("newer")));
    EXPECT_EQ(dialogs.Shown(), Texts{}) << "its own file is replaced without a question";
    EXPECT_EQ(folder.Read("old.asm"), "newer");
}

TEST_F(SourceFileTest, AFileThatCannotBeReadOrWrittenChangesNothing) {
    SourceFile file(kAssemblerSource, Settings(), dialogs);
    dialogs.texts = {folder.Write("a.asm", "text\r\n"), folder.path + "gone.asm", std::nullopt};
    EXPECT_EQ(file.Open(), "text\r\n");
    EXPECT_EQ(file.Open(), std::nullopt);
    EXPECT_EQ(dialogs.Shown().back(), "File '" + folder.path + "gone.asm' could not be opened.");
    EXPECT_EQ(file.Open(), std::nullopt);
    EXPECT_EQ(file.Caption(), "Assembler - a.asm");

    fs::create_directory(folder.path + "dir.asm");
    dialogs.texts = {folder.path + "dir"};
    dialogs.answers = {true};
    EXPECT_FALSE(file.SaveAs(Text("x")));
    EXPECT_EQ(dialogs.Shown().back(),
              "File '" + folder.path + "dir.asm' could not be written.\r\nIs a directory.");
    EXPECT_EQ(file.Caption(), "Assembler - a.asm");
}

TEST_F(SourceFileTest, AnotherFolderIsNotOverwrittenUnasked) {
    SourceFile file(kAssemblerSource, Settings(), dialogs);
    ASSERT_TRUE(file.OpenPath(folder.Write("a.asm", "mine")));
    fs::create_directory(folder.path + "other");
    folder.Write("other/a.asm", "theirs");
    Settings().SetLastPathOf(folder.path + "other/program.hex");
    dialogs.answers = {false, true};
    EXPECT_FALSE(file.Save(Text("changed")));
    EXPECT_EQ(folder.Read("other/a.asm"), "theirs");
    EXPECT_TRUE(file.Save(Text("changed")));
    EXPECT_EQ(folder.Read("other/a.asm"), "changed");
    EXPECT_TRUE(file.Save(Text("again"))) << "asked once";
}

TEST_F(SourceFileTest, GuardsOfTranslatingAndPrinting) {
    SourceFile file(kBasicSource, Settings(), dialogs);
    EXPECT_FALSE(file.IsReady(true));
    EXPECT_FALSE(file.IsReady(false));
    ASSERT_TRUE(file.OpenPath(folder.Write("a.bas", "")));
    EXPECT_FALSE(file.IsReady(true));
    EXPECT_TRUE(file.IsReady(false));
    EXPECT_EQ(dialogs.Shown(), (Texts{"Please save the file first.", "Please save the file first.",
                                      "The editor is empty."}));
    file.New();
    EXPECT_TRUE(file.IsUntitled());
}

TEST_F(SourceFileTest, AnAssemblyLeavesItsFilesOnlyWithoutErrors) {
    folder.Write("pic16f84.cfg", PlainDescription("PORTB EQU 6\r\n3ABC EQU 1\r\n"));
    ASSERT_TRUE(StartUp());
    workbench->SetConfigurationWord(0x3FF1);
    SourceFile file(kAssemblerSource, Settings(), dialogs);
    ASSERT_TRUE(file.OpenPath(folder.Write("test.old.asm", "")));
    const AssemblyRun good =
        AssembleSource(*workbench, dialogs, file, "  MOVWF PORTB\r\n  SLEEP\r\n  END\r\n");
    ReportAssembly(dialogs, good);
    EXPECT_EQ(dialogs.Shown(), Texts{"Invalid argument of the EQU directive.\r\n"
                                     "File 'pic16f84.cfg' is corrupted."});
    EXPECT_EQ(folder.Read("test.lst"), good.assembly.listing);
    EXPECT_NE(folder.Read("test.hex").find(":0400000086006300"), std::string::npos);

    const AssemblyRun bad =
        AssembleSource(*workbench, dialogs, file, "  GOTO A\r\n  GOTO B\r\n  END\r\n");
    ReportAssembly(dialogs, bad);
    EXPECT_EQ(bad.assembly.errorCount, 2);
    EXPECT_EQ(dialogs.Shown().back(),
              "Assembly was not successful.\r\nYour assembler source "
              "contains " +
                  std::to_string(bad.assembly.errorCount) + " errors.");
    EXPECT_EQ(folder.Read("test.lst"), "(no file)");
    EXPECT_EQ(folder.Read("test.hex"), "(no file)");
}

TEST_F(SourceFileTest, ACompilationLeavesItsFileOnlyWithoutAnError) {
    SourceFile file(kBasicSource, Settings(), dialogs);
    ASSERT_TRUE(file.OpenPath(folder.Write("test.old.bas", "")));
    EXPECT_EQ(CompileSource(*workbench, dialogs, file, "Dim a As Byte\r\na = 1\r\n"), std::nullopt);
    EXPECT_EQ(dialogs.Shown(), Texts{"The compilation process was successful.\r\nOutput saved as " +
                                     folder.path + "test.asm"});
    const std::string written = folder.Read("test.asm");
    EXPECT_TRUE(written.starts_with("; Begin\r\n"));
    const auto error = CompileSource(*workbench, dialogs, file, "Dim a As Byte\r\nb = 1\r\n");
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->lineNumber, 2);
    EXPECT_EQ(dialogs.Shown(), Texts{basic::ErrorText(*error)});
    EXPECT_EQ(folder.Read("test.asm"), written);
}

TEST_F(SourceFileTest, TheDisassemblersListing) {
    dialogs.texts = {folder.path + "prog.old.txt"};
    EXPECT_EQ(AskSavePath(dialogs, Settings(), kDisassemblerListing), folder.path + "prog.lst");
    EXPECT_EQ(dialogs.Shown(), Texts{"Save Disassembler Listing As|Listing LST files (*.lst)|*.lst|"
                                     "All files (*.*)|*.*|" +
                                     folder.path});
}

}  // namespace
}  // namespace corvane::app
