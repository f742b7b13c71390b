// Builds the ready-made database, and the shifts beside it: make_database FOLDER_OF_TEXTS TARGET
#include "ExampleText.h"

#include <cstdio>
#include <exception>
#include <filesystem>

int main(int count, char** arguments) {
    if (count != 3) {
        std::fprintf(stderr, "usage: make_database FOLDER TARGET\n");
        return 2;
    }
    try {
        std::filesystem::remove(arguments[2]);
        tvx::MakeExampleDatabase(arguments[1], arguments[2]);
        tvx::MakeExampleShifts(arguments[1], std::filesystem::path(arguments[2]).parent_path());
    } catch (const std::exception& trouble) {
        std::fprintf(stderr, "make_database: %s\n", trouble.what());
        return 1;
    }
    return 0;
}
