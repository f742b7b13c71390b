// The rules that hold the house up, checked on the files themselves.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

const fs::path Root = TVX_SOURCE_DIR;

std::string Content(const fs::path& file) {
    std::ifstream in(file);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::vector<fs::path> SourcesBelow(const fs::path& folder) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const std::string ending = entry.path().extension().string();
        if (ending == ".h" || ending == ".cpp") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

/// From the ground up. A file may include from its own folder and from the floors below; rooms that share a
/// floor do not know each other.
const std::vector<std::vector<std::string>>& Floors() {
    static const std::vector<std::vector<std::string>> floors{
        {"platform/basic"},
        {"platform/dao", "platform/files", "platform/ports"},
        {"shell/state"},
        {"store/rows"},
        {"shell/common"},
        {"store"},
        {"masterdata/files"},
        {"editor/dates"},
        {"editor/week"},
        {"editor/lanes"},
        {"masterdata"},
        {"editor", "weekeditor"},
        {"reports/page"},
        {"reports/schedules"},
        {"reports/charts"},
        {"reports/people"},
        {"analysis"},
        {"shell/console"},
        {"desktop"},
        {"editor/dates/screens"},
        {"editor/lanes/screens"},
        {"reports/page/screens"},
        {"editor/screens", "weekeditor/screens", "masterdata/screens", "store/screens", "reports/screens",
         "analysis/screens"},
        {"shell/screens"},
    };
    return floors;
}

/// The folder of a file below src/, as a floor.
std::string FloorOf(const std::string& pathBelowSource) {
    return fs::path(pathBelowSource).parent_path().generic_string();
}

/// The floor's number from the ground, or -1 for a folder that is none.
int HeightOf(const std::string& room) {
    for (std::size_t height = 0; height < Floors().size(); ++height)
        if (std::ranges::find(Floors()[height], room) != Floors()[height].end())
            return static_cast<int>(height);
    return -1;
}

bool MayInclude(const std::string& room, const std::string& other) {
    return room == other || (HeightOf(other) >= 0 && HeightOf(other) < HeightOf(room));
}

std::vector<std::string> OwnIncludes(const fs::path& file) {
    static const std::regex include(R"re(#include "([^"]+)")re");
    const std::string text = Content(file);
    std::vector<std::string> names;
    for (std::sregex_iterator it(text.begin(), text.end(), include), end; it != end; ++it)
        names.push_back((*it)[1]);
    return names;
}

TEST(House, every_folder_of_the_program_is_a_floor) {
    for (const fs::path& file : SourcesBelow(Root / "src")) {
        const std::string below = fs::relative(file, Root / "src").generic_string();
        if (below == "main.cpp") continue;
        EXPECT_GE(HeightOf(FloorOf(below)), 0) << below;
    }
}

TEST(House, a_file_includes_only_from_its_own_folder_and_from_floors_below) {
    for (const fs::path& file : SourcesBelow(Root / "src")) {
        const std::string below = fs::relative(file, Root / "src").generic_string();
        if (below == "main.cpp") continue;
        for (const std::string& included : OwnIncludes(file)) {
            EXPECT_TRUE(fs::exists(Root / "src" / included)) << below << " includes " << included;
            EXPECT_TRUE(MayInclude(FloorOf(below), FloorOf(included))) << below << " includes " << included;
        }
    }
}

/// The libraries that a folder's library links, by the names in its build file.
std::map<std::string, std::set<std::string>> LinkedLibraries() {
    static const std::regex library(R"re(tvx_(?:library|headers)\((\w+)([^)]*)\))re");
    static const std::regex name(R"re(\btvx_\w+)re");
    std::map<std::string, std::set<std::string>> linked;
    for (const auto& entry : fs::recursive_directory_iterator(Root / "src")) {
        if (entry.path().filename() != "CMakeLists.txt") continue;
        const std::string text = Content(entry.path());
        for (std::sregex_iterator it(text.begin(), text.end(), library), end; it != end; ++it) {
            const std::string links = (*it)[2];
            auto& names = linked[(*it)[1]];
            for (std::sregex_iterator l(links.begin(), links.end(), name); l != end; ++l)
                names.insert(l->str());
        }
    }
    return linked;
}

/// Whether a chain of links leads from one library to another.
bool Reaches(const std::map<std::string, std::set<std::string>>& linked, const std::string& from,
             const std::string& to, std::set<std::string>& seen) {
    if (!seen.insert(from).second) return false;
    const auto found = linked.find(from);
    if (found == linked.end()) return false;
    return std::ranges::any_of(found->second, [&](const std::string& next) {
        return next == to || Reaches(linked, next, to, seen);
    });
}

TEST(House, no_library_links_one_that_links_it) {
    const auto linked = LinkedLibraries();
    ASSERT_GT(linked.size(), 15U);
    for (const auto& [library, links] : linked) {
        std::set<std::string> seen;
        EXPECT_FALSE(Reaches(linked, library, library, seen)) << library;
    }
}

TEST(House, logic_knows_no_window) {
    static const std::regex window(R"re(#include <Q)re");
    for (const fs::path& file : SourcesBelow(Root / "src")) {
        const std::string below = fs::relative(file, Root / "src").generic_string();
        if (below.find("screens/") != std::string::npos || below.starts_with("desktop/")) continue;
        EXPECT_FALSE(std::regex_search(Content(file), window)) << below;
    }
}

/// True for the two folders that know the engine, its language and the names of the fields.
bool IsStoreRoom(const std::string& below) {
    return below.starts_with("platform/dao/") || below.starts_with("store/rows/");
}

/// The texts between quotes, without what stands behind "//" on a line.
std::vector<std::string> Literals(const std::string& source) {
    static const std::regex literal(R"re("((?:[^"\\\n]|\\.)*)"|//[^\n]*)re");
    std::vector<std::string> texts;
    for (std::sregex_iterator it(source.begin(), source.end(), literal), end; it != end; ++it)
        if ((*it)[1].matched) texts.push_back((*it)[1]);
    return texts;
}

TEST(House, only_the_database_layer_knows_its_engine) {
    static const std::regex engine(R"re(sqlite|\bPRAGMA\b)re");
    for (const fs::path& file : SourcesBelow(Root / "src")) {
        const std::string below = fs::relative(file, Root / "src").generic_string();
        if (below.starts_with("platform/dao/")) continue;
        EXPECT_FALSE(std::regex_search(Content(file), engine)) << below;
    }
}

TEST(House, only_the_session_on_the_engine_calls_it) {
    for (const fs::path& file : SourcesBelow(Root / "src")) {
        if (file.filename().string().starts_with("Sqlite")) continue;
        EXPECT_EQ(Content(file).find("sqlite3"), std::string::npos) << file;
    }
}

TEST(House, queries_and_names_of_fields_stand_in_the_store_room) {
    static const std::regex query(
        R"re(\b(SELECT|INSERT|UPDATE|ORDER BY)\b|\bDELETE FROM\b|\[[A-Za-z&/ ]*[a-z][A-Za-z&/ ]*\])re");
    for (const fs::path& file : SourcesBelow(Root / "src")) {
        const std::string below = fs::relative(file, Root / "src").generic_string();
        if (IsStoreRoom(below)) continue;
        for (const std::string& text : Literals(Content(file)))
            EXPECT_FALSE(std::regex_search(text, query)) << below << " has \"" << text << "\"";
    }
}

TEST(House, only_the_store_room_opens_recordsets) {
    static const std::regex opening(R"re(\bOpenRecordset\(|\.Fields\()re");
    for (const fs::path& file : SourcesBelow(Root / "src")) {
        const std::string below = fs::relative(file, Root / "src").generic_string();
        EXPECT_TRUE(IsStoreRoom(below) || !std::regex_search(Content(file), opening)) << below;
    }
}

/// A header without its remarks and its lines for the preprocessor.
std::string CodeOf(const fs::path& header) {
    static const std::regex other(R"re(//[^\n]*|#[^\n]*)re");
    return std::regex_replace(Content(header), other, "");
}

/// What stands between two marks of the end of a declaration, each with the line break before it.
std::vector<std::string> DeclarationsIn(const std::string& code) {
    std::vector<std::string> declarations(1);
    for (const char c : code) {
        if (c == ';' || c == '{' || c == '}')
            declarations.emplace_back();
        else
            declarations.back() += c;
    }
    return declarations;
}

/// A function that belongs to no class begins at the left edge.
bool IsFreeFunction(const std::string& declaration) {
    static const std::regex function(
        R"re(\s*\n(?!namespace|using|struct|class|enum|constexpr)[A-Za-z][^=(]*\()re");
    return std::regex_search(declaration, function, std::regex_constants::match_continuous);
}

bool TakesTheWholeState(const std::string& declaration) {
    return declaration.find('(') < declaration.find("GlobalState&") &&
           declaration.find("GlobalState&") != std::string::npos;
}

TEST(House, at_most_one_function_of_logic_in_five_takes_the_whole_state) {
    std::ptrdiff_t functions = 0;
    std::ptrdiff_t takeAll = 0;
    for (const fs::path& file : SourcesBelow(Root / "src")) {
        const std::string room = FloorOf(fs::relative(file, Root / "src").generic_string());
        if (file.extension() != ".h" || HeightOf(room) <= HeightOf("store/rows") || room == "desktop" ||
            room.ends_with("screens"))
            continue;
        const auto declarations = DeclarationsIn(CodeOf(file));
        functions += std::ranges::count_if(declarations, IsFreeFunction);
        takeAll += std::ranges::count_if(declarations, TakesTheWholeState);
    }
    ASSERT_GT(functions, 150);
    ASSERT_GT(takeAll, 0);
    EXPECT_LE(takeAll * 5, functions) << takeAll << " of " << functions;
}

TEST(House, every_test_file_is_named_where_it_is_built) {
    for (const fs::path& file : SourcesBelow(Root / "tests")) {
        if (!file.filename().string().ends_with("Test.cpp")) continue;
        bool named = false;
        for (fs::path folder = file.parent_path(); folder != Root; folder = folder.parent_path())
            named = named ||
                    Content(folder / "CMakeLists.txt").find(file.filename().string()) != std::string::npos;
        EXPECT_TRUE(named) << file;
    }
}

TEST(House, every_header_says_first_what_it_is_for) {
    for (const fs::path& file : SourcesBelow(Root / "src"))
        EXPECT_TRUE(file.extension() != ".h" || Content(file).starts_with("// ")) << file;
}

} // namespace
