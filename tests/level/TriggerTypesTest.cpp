// The table of trigger types against what authors read and choose from.

#include "level/TriggerTypes.h"

#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "support/Places.h"

namespace {

std::string TextOf(const char* name) {
    std::ifstream file(SourceDirectory() / name);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::string TargetWords(unsigned targets) {
    constexpr const char* words[] = {"polygons", "objects", "forces",
                                     "movers",   "sounds",  "emitters"};
    std::string list;
    for (unsigned bit = 0; bit < std::size(words); ++bit) {
        if ((targets & 1u << bit) != 0) {
            list += (list.empty() ? "" : ", ") + std::string(words[bit]);
        }
    }
    return list;
}

TEST(TriggerTypes, StandInTheAuthorsTable) {
    std::ostringstream table;
    table << "| Number | Type | Targets | What happens |\n|---|---|---|---|\n";
    for (const TriggerType& type : TriggerTypes::all) {
        table << "| " << type.Number() << " | `" << type.name << "` | " << TargetWords(type.targets)
              << " | " << type.sentence << " |\n";
    }
    EXPECT_NE(TextOf("docs/levels.md").find(table.str()), std::string::npos)
        << "docs/levels.md is to hold:\n"
        << table.str();
}

TEST(TriggerTypes, AreTheEditorsChoices) {
    const auto project = nlohmann::json::parse(TextOf("levels/vantrel.tiled-project"));
    std::vector<std::string> names;
    for (const TriggerType& type : TriggerTypes::all) {
        names.emplace_back(type.name);
    }
    for (const auto& property : project["propertyTypes"]) {
        if (property["name"] == "TriggerType") {
            EXPECT_EQ(property["values"], nlohmann::json(names));
            return;
        }
    }
    ADD_FAILURE() << "the project has no TriggerType";
}

}  // namespace
