// Build tool: runs an SQL script against a new SQLite file.
#include <sqlite3.h>

#include <cstdio>
#include <fstream>
#include <sstream>

int main(int argc, char* argv[])
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: schema2db SCRIPT DATABASE\n");
        return 2;
    }
    std::ifstream in(argv[1], std::ios::binary);
    if (!in) {
        std::fprintf(stderr, "schema2db: cannot read %s\n", argv[1]);
        return 1;
    }
    std::stringstream text;
    text << in.rdbuf();
    sqlite3* db = nullptr;
    if (sqlite3_open(argv[2], &db) != SQLITE_OK) {
        std::fprintf(stderr, "schema2db: cannot create %s\n", argv[2]);
        return 1;
    }
    char* error = nullptr;
    const int rc = sqlite3_exec(db, text.str().c_str(), nullptr, nullptr, &error);
    if (rc != SQLITE_OK)
        std::fprintf(stderr, "schema2db: %s\n", error ? error : "error");
    sqlite3_free(error);
    sqlite3_close(db);
    return rc == SQLITE_OK ? 0 : 1;
}
