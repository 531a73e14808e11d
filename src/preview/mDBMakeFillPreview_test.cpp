// SPDX-License-Identifier: MPL-2.0

#include "preview/mDBMakeFillPreview.h"

#include "base/Bitmaps_test_support.h"
#include "base/Text.h"
#include "files/Folder_test_support.h"
#include "forms/ForwardingRuntime.h"
#include "ports/memory/MemoryRuntime.h"

namespace huebrush::preview {
namespace {

using base::Picture;
using base::PictureFormat;
using forms::MsgBoxResult;
using jet::Bytes;
using jet::Value;
using memory::ShownBox;

constexpr const char* kRead = "Chyba při načítání náhledu výplně z databáze.";
constexpr const char* kWrite = "Chyba při ukládání náhledu výplně do databáze.";
constexpr const char* kInvalid = "Obrázek je neplatný.";

const Bytes& bitmap() {
    return base::bitmapSamples().front().file;
}

Field holding(const Value& value) {
    return [value] { return value; };
}

class Previews : public files::Folder {
 protected:
    Previews() { runtime.temporary = files::nameOf(folder); }

    std::string temporaryFile() const { return inFolder("_~huebrush.tmp"); }
    /// The box of an error in one of the procedures, with its three buttons.
    static ShownBox box(const std::string& procedure, const std::string& message,
                        std::int32_t number, const std::string& description) {
        return {
            base::text("Chyba v modulu \"Huebrush.mDBMakeFillPreview.", procedure, "\"...\r\n\r\n",
                       message, "\r\n\r\nSystémový popis výjimky:\r\n", description),
            50, base::text("Chyba č. ", number)};
    }
    /// The procedures, messages and numbers of the boxes whose description the system words.
    std::vector<std::string> failures() const {
        std::vector<std::string> all;
        for (const ShownBox& each : runtime.boxes) {
            EXPECT_EQ(each.style, 50);
            const std::size_t end = each.text.find("\r\n\r\nSystémový popis výjimky:\r\n");
            all.push_back(each.title + ": " + each.text.substr(0, end));
        }
        return all;
    }
    static std::string failure(int number, const std::string& procedure,
                               const std::string& message) {
        return base::text("Chyba č. ", number, ": Chyba v modulu \"Huebrush.mDBMakeFillPreview.",
                          procedure, "\"...\r\n\r\n", message);
    }

    memory::MemoryRuntime runtime;
    forms::RuntimeScope scope{runtime};
};

TEST_F(Previews, APictureThatIsEmptyIsStoredAsNull) {
    EXPECT_TRUE(jet::isNull(WritePictureToRS(Picture())));
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(Previews, ANullReadsBackAsNoPicture) {
    EXPECT_TRUE(ReadPictureFromRS(holding(Value())).empty());
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(Previews, AFieldThatIsAbsentReadsAsNoPicture) {
    EXPECT_TRUE(ReadPictureFromRS({}).empty());
    EXPECT_TRUE(runtime.boxes.empty());
    EXPECT_TRUE(runtime.Component().temporaryFile().empty());
}

TEST_F(Previews, ComeBackByteForByte) {
    std::vector<Bytes> files{base::plainMetafile(), base::placeableMetafile(),
                             base::enhancedMetafile()};
    for (const auto& sample : base::bitmapSamples()) files.push_back(sample.file);
    for (const Bytes& file : files) {
        const Picture picture = ReadPictureFromRS(holding(file));
        EXPECT_EQ(picture.bytes(), file);
        EXPECT_EQ(WritePictureToRS(picture), Value(file));
    }
    EXPECT_EQ(ReadPictureFromRS(holding(base::plainMetafile())).format(), PictureFormat::metafile);
    EXPECT_EQ(ReadPictureFromRS(holding(bitmap())).format(), PictureFormat::bitmap);
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(Previews, LeaveNoTemporaryFile) {
    EXPECT_FALSE(ReadPictureFromRS(holding(bitmap())).empty());
    EXPECT_FALSE(jet::isNull(WritePictureToRS({PictureFormat::bitmap, bitmap()})));
    EXPECT_EQ(filesInFolder(), 0U);
}

TEST_F(Previews, TheTemporaryNameIsMadeOfTheFolderAndTheComponentsName) {
    EXPECT_EQ(getTmpFile(), files::nameOf(folder) + "/_~huebrush.tmp");
    runtime.Component().temporaryFile().clear();
    runtime.temporary += "/";
    EXPECT_EQ(getTmpFile(), files::nameOf(folder) + "/_~huebrush.tmp");
}

TEST_F(Previews, TheTemporaryNameIsComputedOnce) {
    const std::string name = getTmpFile();
    runtime.temporary = "/somewhere/else";
    EXPECT_EQ(getTmpFile(), name);
    EXPECT_EQ(ReadPictureFromRS(holding(bitmap())).bytes(), bitmap());
    EXPECT_TRUE(runtime.boxes.empty());
    // Another component, loaded later, computes its own.
    memory::MemoryRuntime other;
    const forms::RuntimeScope scopeOfOther(other);
    EXPECT_EQ(getTmpFile(), "/tmp/_~huebrush.tmp");
}

TEST_F(Previews, BytesThatAreNoPictureFileAreReported) {
    runtime.answers = {MsgBoxResult::abort};
    EXPECT_TRUE(ReadPictureFromRS(holding(Bytes{1, 2, 3})).empty());
    EXPECT_EQ(runtime.boxes, std::vector{box("ReadPictureFromRS", kRead, 481, kInvalid)});
}

TEST_F(Previews, AValueThatIsNotBytesIsReported) {
    runtime.answers = {MsgBoxResult::abort};
    EXPECT_TRUE(ReadPictureFromRS(holding(std::string("obrázek"))).empty());
    EXPECT_EQ(runtime.boxes,
              std::vector{box("ReadPictureFromRS", kRead, 13, "Náhled výplně není pole bajtů.")});
}

TEST_F(Previews, AFieldThatCannotBeReadIsReported) {
    const Field damaged = []() -> Value { throw base::Error(3049, "Soubor je poškozen."); };
    runtime.answers = {MsgBoxResult::abort};
    EXPECT_TRUE(ReadPictureFromRS(damaged).empty());
    EXPECT_EQ(runtime.boxes,
              std::vector{box("ReadPictureFromRS", kRead, 3049, "Soubor je poškozen.")});
}

TEST_F(Previews, RetryRepeatsTheStepThatFailed) {
    int calls = 0;
    const Field field = [&]() -> Value {
        if (++calls < 3) throw base::Error(3045, "Databázi má otevřenou jiný program.");
        return bitmap();
    };
    runtime.answers = {MsgBoxResult::retry, MsgBoxResult::retry};
    EXPECT_EQ(ReadPictureFromRS(field).bytes(), bitmap());
    EXPECT_EQ(calls, 3);
    EXPECT_EQ(runtime.boxes.size(), 2U);
}

TEST_F(Previews, IgnoreGoesOnWithTheNextStep) {
    runtime.answers = {MsgBoxResult::ignore};
    EXPECT_TRUE(ReadPictureFromRS(holding(Bytes{1, 2, 3})).empty());
    EXPECT_EQ(runtime.boxes.size(), 1U);
    // The next step has removed the file.
    EXPECT_EQ(filesInFolder(), 0U);
}

TEST_F(Previews, AFileLeftBehindIsOverwrittenByTheNextUse) {
    runtime.answers = {MsgBoxResult::abort};
    ReadPictureFromRS(holding(Bytes{1, 2, 3}));
    EXPECT_EQ(read(temporaryFile()), "\1\2\3");
    EXPECT_EQ(ReadPictureFromRS(holding(bitmap())).bytes(), bitmap());
    EXPECT_EQ(filesInFolder(), 0U);
    write("_~huebrush.tmp", std::string(100'000, 'x'));
    EXPECT_EQ(WritePictureToRS({PictureFormat::bitmap, bitmap()}), Value(bitmap()));
    EXPECT_EQ(filesInFolder(), 0U);
}

TEST_F(Previews, AFolderThatIsMissingIsReportedForEachStep) {
    runtime.temporary += "/none";
    runtime.answers = {MsgBoxResult::ignore, MsgBoxResult::ignore, MsgBoxResult::ignore,
                       MsgBoxResult::ignore};
    EXPECT_TRUE(ReadPictureFromRS(holding(bitmap())).empty());
    const std::string notOpen = failure(52, "ReadPictureFromRS", kRead);
    EXPECT_EQ(failures(), (std::vector<std::string>{failure(76, "ReadPictureFromRS", kRead),
                                                    notOpen, notOpen, notOpen}));
}

TEST_F(Previews, AFolderThatTheUserMakesMeanwhileIsUsedOnRetry) {
    runtime.temporary += "/later";
    runtime.onBox = [&] { std::filesystem::create_directory(files::pathOf(runtime.temporary)); };
    runtime.answers = {MsgBoxResult::retry};
    EXPECT_EQ(WritePictureToRS({PictureFormat::bitmap, bitmap()}), Value(bitmap()));
    EXPECT_EQ(failures(), std::vector{failure(76, "WritePictureToRS", kWrite)});
}

TEST_F(Previews, APictureThatWouldNotReadBackIsNotStored) {
    for (const Picture& picture :
         {Picture(PictureFormat::png, {1, 2, 3}), Picture(PictureFormat::bitmap, {1, 2, 3})}) {
        for (const MsgBoxResult answer : {MsgBoxResult::abort, MsgBoxResult::ignore}) {
            runtime.boxes.clear();
            runtime.answers = {answer};
            EXPECT_TRUE(jet::isNull(WritePictureToRS(picture)));
            EXPECT_EQ(runtime.boxes, std::vector{box("WritePictureToRS", kWrite, 481, kInvalid)});
        }
    }
}

/// A runtime whose component does not know where temporary files go.
class WithoutFolder final : public forms::ForwardingRuntime, private forms::Component {
 public:
    using ForwardingRuntime::ForwardingRuntime;
    const forms::Component& Component() override { return *this; }
    int failures = 1;

 private:
    std::string version() const override { return {}; }
    std::string name() const override { return "Huebrush"; }
    std::string folder() const override { return {}; }
    std::string userFolder() const override { return {}; }
    std::string temporaryFolder() const override {
        if (asked_++ < failures) throw base::Error(76, "Cesta nebyla nalezena.");
        return "/somewhere";
    }
    base::Picture icon(std::int32_t) const override { return {}; }
    char decimalSeparator() const override { return '.'; }

    mutable int asked_ = 0;
};

TEST_F(Previews, AFailureToMakeTheTemporaryNameIsReported) {
    WithoutFolder without(runtime);
    const forms::RuntimeScope scopeOfOther(without);
    const ShownBox expected =
        box("getTmpFile", "Chyba při vytváření dočasného souboru.", 76, "Cesta nebyla nalezena.");
    runtime.answers = {MsgBoxResult::abort};
    EXPECT_EQ(getTmpFile(), "");
    EXPECT_EQ(runtime.boxes, std::vector{expected});
    // It is asked for again, since there is no name yet.
    EXPECT_EQ(getTmpFile(), "/somewhere/_~Huebrush.tmp");
    EXPECT_EQ(runtime.boxes.size(), 1U);
}

TEST_F(Previews, TheTemporaryNameIsMadeOnRetryAndWithoutAFolderOnIgnore) {
    WithoutFolder without(runtime);
    const forms::RuntimeScope scopeOfOther(without);
    runtime.answers = {MsgBoxResult::retry};
    EXPECT_EQ(getTmpFile(), "/somewhere/_~Huebrush.tmp");
    WithoutFolder another(runtime);
    const forms::RuntimeScope scopeOfAnother(another);
    runtime.answers = {MsgBoxResult::ignore};
    EXPECT_EQ(getTmpFile(), "_~Huebrush.tmp");
}

}  // namespace
}  // namespace huebrush::preview
