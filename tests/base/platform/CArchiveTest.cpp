#include "ipc2581/base/platform/CArchive.h"

#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/PointD.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CArray.h"
#include "ipc2581/base/platform/CObject.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/base/platform/CString.h"
#include "ipc2581/base/platform/CStringArray.h"
#include "tests/support/Files.h"

namespace ipc2581::tests {
namespace {

using Integers = CArray<std::int32_t, std::int32_t>;
using Doubles = CArray<double, double>;
using Texts = CArray<CString, CString>;
using Points = CArray<CPointD, CPointD &>;
using List = std::vector<std::string>;

void OpenForLoading(CStdioFile & file, const std::string & path)
{
    ASSERT_NE(file.Open(path.c_str(), CStdioFile::modeReadWrite, nullptr), 0);
}

void Store(const std::string & path, std::initializer_list<CObject *> objects)
{
    CStdioFile file;
    ASSERT_NE(file.Open(path.c_str(), CStdioFile::modeCreate | CStdioFile::modeWrite, nullptr), 0);
    CArchive archive(&file, CArchive::store);
    for (CObject * const object : objects) {
        object->Serialize(archive);
    }
    file.Close();
}

void Load(const std::string & path, std::initializer_list<CObject *> objects)
{
    CStdioFile file;
    OpenForLoading(file, path);
    CArchive archive(&file, CArchive::load);
    for (CObject * const object : objects) {
        object->Serialize(archive);
    }
}

std::string Stored(CObject & object)
{
    const TempFolder folder;
    Store(folder.Path("archive"), {&object});
    return Bytes(folder.Path("archive"));
}

// What the target holds after it has loaded what the source stored.
void Pass(CObject & source, CObject & target)
{
    const TempFolder folder;
    Store(folder.Path("archive"), {&source});
    Load(folder.Path("archive"), {&target});
}

template <typename Array, typename Element>
void Fill(Array & array, std::initializer_list<Element> elements)
{
    for (Element element : elements) {
        array.Add(element);
    }
}

List All(const CArray<CString, CString> & array)
{
    List texts;
    for (std::int64_t i = 0; i < array.GetSize(); ++i) {
        texts.push_back(Str(array[i]));
    }
    return texts;
}

// Each shorter piece of what the source stores must fail to load.
void ExpectShortReads(CObject & source, CObject & target)
{
    const std::string bytes = Stored(source);
    ASSERT_FALSE(bytes.empty());
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        const TempFolder folder;
        const std::string path = folder.Save("archive", std::string_view(bytes).substr(0, length));
        EXPECT_THROW(Load(path, {&target}), CArchiveException) << length;
    }
}

}  // namespace

TEST(CArchive, KnowsItsDirection)
{
    CStdioFile file;
    EXPECT_TRUE(CArchive(&file, CArchive::store).IsStoring());
    EXPECT_FALSE(CArchive(&file, CArchive::store).IsLoading());
    EXPECT_TRUE(CArchive(&file, CArchive::load).IsLoading());
    EXPECT_FALSE(CArchive(&file, CArchive::load).IsStoring());
}

TEST(CArchive, BringsIntegersBack)
{
    Integers source;
    Fill(source, {0, 1, -1, std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()});
    Integers target;
    Pass(source, target);
    ASSERT_EQ(target.GetSize(), 5);
    for (std::int64_t i = 0; i < 5; ++i) {
        EXPECT_EQ(target[i], source[i]);
    }
    EXPECT_EQ(source.GetSize(), 5);
}

TEST(CArchive, BringsBytesBackThatLookLikeLineEnds)
{
    Integers source;
    Fill(source, {0x0a0d0a0d, 0x0d0a0d0a, 0x0a0a0a0a, 0x0d0d0d0d, 0x1a1a1a1a, 0x0000000d});
    Integers target;
    Pass(source, target);
    ASSERT_EQ(target.GetSize(), 6);
    for (std::int64_t i = 0; i < 6; ++i) {
        EXPECT_EQ(target[i], source[i]);
    }
}

TEST(CArchive, BringsEveryBitOfADoubleBack)
{
    using Limits = std::numeric_limits<double>;
    Doubles source;
    Fill(source, {1.5, -0.0, Limits::quiet_NaN(), Limits::denorm_min(), -Limits::infinity(), Limits::max()});
    Doubles target;
    Pass(source, target);
    ASSERT_EQ(target.GetSize(), 6);
    EXPECT_EQ(std::memcmp(target.GetData(), source.GetData(), 6 * sizeof(double)), 0);
}

TEST(CArchive, BringsPointsBack)
{
    CArrayPointD source;
    Fill(source, {CPointD(1.5, -2.5), CPointD(), CPointD(1e300, 1e-300)});
    CArrayPointD target;
    Pass(source, target);
    ASSERT_EQ(target.GetSize(), 3);
    for (std::int64_t i = 0; i < 3; ++i) {
        EXPECT_TRUE(target[i] == source[i]) << i;
    }
    Points plain;
    Pass(source, plain);
    EXPECT_EQ(plain.GetSize(), 3);
}

TEST(CArchive, BringsTextsBackAsText)
{
    const List texts = {"",
                        "R1",
                        "a text that is longer than what an object holds inside itself",
                        "two\r\nlines",
                        "\x1a",
                        std::string("zero\0byte", 9),
                        std::string(200'000, 'x'),
                        "\xff\xfe"};
    Texts source;
    for (const std::string & text : texts) {
        source.Add(CString(std::string_view(text)));
    }
    const TempFolder folder;
    Store(folder.Path("archive"), {&source});
    source.RemoveAll();
    Texts target;
    Load(folder.Path("archive"), {&target});
    EXPECT_EQ(All(target), texts);
}

TEST(CArchive, BringsAStringListBack)
{
    CStringArray source;
    source.SetAtGrow(0, "Content");
    source.SetAtGrow(1, "Ecad");
    CStringArray target;
    Pass(source, target);
    ASSERT_EQ(target.GetSize(), 2);
    EXPECT_EQ(target[0], "Content");
    EXPECT_EQ(target[1], "Ecad");
}

TEST(CArchive, BringsThePointersThemselvesBack)
{
    int objects[2] = {1, 2};
    CArray<int *, int *> source;
    source.Add(objects);
    source.Add(nullptr);
    source.Add(objects + 1);
    CArray<int *, int *> target;
    Pass(source, target);
    ASSERT_EQ(target.GetSize(), 3);
    EXPECT_EQ(target[0], objects);
    EXPECT_EQ(target[1], nullptr);
    EXPECT_EQ(target[2], objects + 1);
}

TEST(CArchive, BringsMoreElementsBackThanFitTwoBytes)
{
    for (const std::int64_t size : {65534, 65535, 65536, 200'000}) {
        Integers source;
        source.SetSize(size);
        for (std::int64_t i = 0; i < size; ++i) {
            source[i] = static_cast<std::int32_t>(i);
        }
        Integers target;
        Pass(source, target);
        ASSERT_EQ(target.GetSize(), size);
        EXPECT_EQ(std::memcmp(target.GetData(), source.GetData(), static_cast<std::size_t>(size) * 4), 0);
    }
}

TEST(CArchive, ReplacesWhatTheArrayHeld)
{
    Integers source;
    Fill(source, {1, 2});
    Integers target;
    Fill(target, {7, 8, 9, 10});
    Pass(source, target);
    ASSERT_EQ(target.GetSize(), 2);
    EXPECT_EQ(target[0], 1);
    EXPECT_EQ(target[1], 2);
    Integers none;
    Pass(none, target);
    EXPECT_TRUE(target.IsEmpty());
    Texts texts;
    texts.Add("before");
    Pass(none, texts);
    EXPECT_TRUE(texts.IsEmpty());
}

TEST(CArchive, HoldsTheCountAndThenTheRawElements)
{
    Integers none;
    Integers source;
    Fill(source, {0x01020304, -2, 0x7f00ff00});
    const std::string empty = Stored(none);
    const std::string bytes = Stored(source);
    ASSERT_FALSE(empty.empty());
    ASSERT_EQ(bytes.size(), empty.size() + 12);
    EXPECT_EQ(std::memcmp(bytes.data() + empty.size(), source.GetData(), 12), 0);
    EXPECT_NE(bytes.substr(0, empty.size()), empty);
}

TEST(CArchive, HoldsOneArrayBehindTheOther)
{
    Integers integers;
    Fill(integers, {1, 2, 3});
    Texts texts;
    texts.Add("text");
    Integers none;
    Doubles doubles;
    doubles.Add(2.5);
    const TempFolder folder;
    Store(folder.Path("archive"), {&integers, &texts, &none, &doubles});

    Integers loadedIntegers;
    Texts loadedTexts;
    Integers loadedNone;
    Doubles loadedDoubles;
    Load(folder.Path("archive"), {&loadedIntegers, &loadedTexts, &loadedNone, &loadedDoubles});
    ASSERT_EQ(loadedIntegers.GetSize(), 3);
    EXPECT_EQ(loadedIntegers[2], 3);
    EXPECT_EQ(All(loadedTexts), (List{"text"}));
    EXPECT_TRUE(loadedNone.IsEmpty());
    ASSERT_EQ(loadedDoubles.GetSize(), 1);
    EXPECT_EQ(loadedDoubles[0], 2.5);
}

TEST(CArchive, RaisesForAShortRead)
{
    Integers integers;
    Fill(integers, {1, 2, 3});
    ExpectShortReads(integers, integers);
    Texts texts;
    texts.Add("short");
    texts.Add("");
    texts.Add("a text that is longer than what an object holds inside itself");
    Texts loaded;
    ExpectShortReads(texts, loaded);
    CArrayPointD points;
    Fill(points, {CPointD(1, 2), CPointD(3, 4)});
    CArrayPointD loadedPoints;
    ExpectShortReads(points, loadedPoints);
}

TEST(CArchive, RaisesForAFileThatIsNotOpen)
{
    CStdioFile file;
    CArchive archive(&file, CArchive::load);
    Integers integers;
    EXPECT_THROW(integers.Serialize(archive), std::runtime_error);
}

TEST(CArchive, NamesTheFailureInAnExceptionThrownByValue)
{
    static_assert(std::is_base_of_v<std::runtime_error, CArchiveException>);
    const TempFolder folder;
    const std::string path = folder.Save("archive", "");
    Integers integers;
    try {
        Load(path, {&integers});
        FAIL() << "nothing was thrown";
    }
    catch (const std::runtime_error & error) {
        EXPECT_STRNE(error.what(), "");
    }
}

TEST(CArchive, LeavesTheFileToItsCaller)
{
    const TempFolder folder;
    const std::string path = folder.Path("archive");
    Integers source;
    Fill(source, {1, 0x0a0a0a0a});
    CStdioFile out;
    ASSERT_NE(out.Open(path.c_str(), CStdioFile::modeCreate | CStdioFile::modeWrite, nullptr), 0);
    out.WriteString("before\n");
    {
        CArchive archive(&out, CArchive::store);
        source.Serialize(archive);
    }
    out.WriteString("after\n");
    out.Close();

    CStdioFile in;
    OpenForLoading(in, path);
    CString line;
    EXPECT_NE(in.ReadString(line), 0);
    EXPECT_EQ(line, "before");
    Integers target;
    {
        CArchive archive(&in, CArchive::load);
        target.Serialize(archive);
    }
    ASSERT_EQ(target.GetSize(), 2);
    EXPECT_EQ(target[1], 0x0a0a0a0a);
    EXPECT_NE(in.ReadString(line), 0);
    EXPECT_EQ(line, "after");
    EXPECT_EQ(in.ReadString(line), 0);
}

TEST(CArchive, LeavesTheFileOpenAfterAShortRead)
{
    const TempFolder folder;
    const std::string path = folder.Save("archive", "x");
    CStdioFile file;
    OpenForLoading(file, path);
    Integers integers;
    {
        CArchive archive(&file, CArchive::load);
        EXPECT_THROW(integers.Serialize(archive), CArchiveException);
    }
    CString line;
    EXPECT_EQ(file.ReadString(line), 0);
    EXPECT_EQ(line, "");
    file.Close();
}

TEST(CArchive, RaisesForAFullDisk)
{
    if (!HasFullDevice()) {
        GTEST_SKIP() << NoFullDevice;
    }
    CStdioFile file;
    ASSERT_NE(file.Open(FullDevice, CStdioFile::modeReadWrite, nullptr), 0);
    Integers integers;
    integers.SetSize(1'000'000);
    CArchive archive(&file, CArchive::store);
    EXPECT_THROW(
        {
            integers.Serialize(archive);
            file.Close();
        },
        CFileException);
}

}  // namespace ipc2581::tests
