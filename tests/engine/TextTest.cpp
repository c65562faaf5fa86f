// Text forms, and cfg files, which are made of them.

#include <gtest/gtest.h>

#include <limits>

#include "WorkingFolder.h"
#include "engine/ConfigFile.h"
#include "engine/Console.h"
#include "engine/Text.h"

TEST(Text, KnowsIntegers) {
    for (const char* text : {"0", "-12", "007", "-"}) {
        EXPECT_TRUE(IsInteger(text)) << text;
    }
    for (const char* text : {"", "+1", "1-", "--1", "1.0", "1 ", "0x1"}) {
        EXPECT_FALSE(IsInteger(text)) << text;
    }
    EXPECT_EQ(ToInteger("-12"), -12);
    EXPECT_EQ(ToInteger("-"), 0);
    EXPECT_EQ(ToInteger("3.7"), 0);
    EXPECT_EQ(ToInteger("2147483648"), std::numeric_limits<int>::max());
    EXPECT_EQ(ToInteger("-99999999999999999999"), std::numeric_limits<int>::min());
}

TEST(Text, KnowsNumbers) {
    for (const char* text : {"1.5", ".5", "5.", "-.5", "-", "."}) {
        EXPECT_TRUE(IsNumber(text)) << text;
    }
    for (const char* text : {"", "1e3", "1..5", "+1", "1-", "inf", "nan"}) {
        EXPECT_FALSE(IsNumber(text)) << text;
    }
    EXPECT_EQ(ToNumber("-.5"), -0.5f);
    EXPECT_EQ(ToNumber("5."), 5.0f);
    EXPECT_EQ(ToNumber("."), 0.0f);
    EXPECT_EQ(ToNumber("0.1"), 0.1f);
    const float infinity = std::numeric_limits<float>::infinity();
    EXPECT_EQ(ToNumber('-' + std::string(400, '9')), -infinity);
    EXPECT_EQ(ToNumber("00." + std::string(400, '0') + '1'), 0.0f);
}

namespace {

ConfigFile Parsed(std::string_view text) {
    ConfigFile config;
    config.Parse(text, "test.cfg");
    return config;
}

}  // namespace

TEST(ConfigFile, ReadsPairsHoweverTheyArePartedByBlanksAndEquals) {
    for (const char* text : {"a = 1 b = 2", "a=1 b=2", "a 1 b 2", "a\n1\r\nb\b2\n",
                             "=a===1 b= =2 ==", "x 1 a 0 A=1 B 2"}) {
        const ConfigFile config = Parsed(text);
        EXPECT_EQ(config.GetInt("a"), 1) << text;
        EXPECT_EQ(config.GetInt("B"), 2) << text;
    }
    EXPECT_EQ(Parsed("// word\nkey Lev\\A.b").GetString("//"), "word");
    EXPECT_EQ(Parsed("// word\nkey Lev\\A.b").GetString("KEY"), "Lev\\A.b");
    EXPECT_EQ(Parsed(std::string_view("a 1\0 b", 6)).GetInt("a"), 1);
}

TEST(ConfigFile, RefusesAnOddWordWithTheWholeFile) {
    for (const char* text : {"a 1 b", "a =", "a = b = c"}) {
        Console::Clear();
        EXPECT_FALSE(Parsed(text).Has("a")) << text;
        EXPECT_EQ(Console::OutputText(), "\nError parsing configuration file: test.cfg");
    }
}

TEST(ConfigFile, KeepsTargetsWhoseValuesAreOfAnotherForm) {
    const ConfigFile config = Parsed("i 3.7 f 1e3 b 1 s text t True n 3");
    int integer = 7;
    float number = 2.5f;
    bool flag = true;
    std::string text = "old";
    config.ReadInt("i", integer);
    config.ReadFloat("f", number);
    config.ReadFloat("missing", number);
    config.ReadBool("b", flag);
    config.ReadString("", text);
    EXPECT_EQ(integer, 7);
    EXPECT_EQ(number, 2.5f);
    EXPECT_TRUE(flag);
    EXPECT_EQ(text, "old");
    EXPECT_EQ(config.GetInt("i"), 0);
    EXPECT_FALSE(config.GetBool("b"));
    EXPECT_TRUE(config.GetBool("T"));
    EXPECT_EQ(config.GetFloat("n"), 3.0f);
    EXPECT_EQ(config.GetFloat("missing"), 0.0f);
}

TEST(ConfigFile, SaysWhichFileCannotBeRead) {
    const WorkingFolder directory;
    directory.Write("cfg/Game.CFG", "gravity 100");
    directory.Write("cfg/empty.cfg", "");
    Console::Clear();
    ConfigFile config("CFG\\game.cfg");
    EXPECT_EQ(config.GetInt("gravity"), 100);
    config.Load("cfg\\empty.cfg");
    EXPECT_EQ(Console::OutputText(), "");
    EXPECT_FALSE(config.Has("gravity"));
    config.Load("cfg\\none.cfg");
    EXPECT_EQ(Console::OutputText(), "\nCould not open config file: cfg\\none.cfg");
    Console::Clear();
    config.Load(static_cast<const char*>(nullptr));
    EXPECT_EQ(Console::OutputText(), "\nError in configuration Loader: no file name given");
}
