// Writes what follows from the tables of the documents:
//
//     schema_writer --json-schemas DIR                  DRIVER.schema.json of every document, and
//                                                       those of what holds them
//     schema_writer --manifest DRIVER FILE [PIECE ...]  a manifest; pieces have what the document hasn't
//     schema_writer --seeds DIR                         what the fuzzers start from
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "tools/json_schema.hpp"
#include "tools/manifest.hpp"
#include "tools/seeds.hpp"

namespace {

bool write_file(const std::filesystem::path& path, const std::string& text)
{
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.close();
    if (!file)
        std::fprintf(stderr, "schema_writer: cannot write %s\n", path.c_str());
    return static_cast<bool>(file);
}

bool write_json_schemas(const std::filesystem::path& directory)
{
    bool whole = true;
    for (const Schema& schema : SCHEMAS)
        whole &=
            write_file(directory / (std::string(schema.driver) + ".schema.json"), json_schema_of(schema));
    return whole && write_file(directory / "zelmctl-get.schema.json", json_schema_of_get()) &&
           write_file(directory / "appliance.schema.json", json_schema_of_appliance());
}

bool write_seeds(const std::filesystem::path& directory)
{
    bool whole = true;
    for (const auto& [name, bytes] : fuzz_seeds()) {
        std::filesystem::create_directories((directory / name).parent_path());
        whole &= write_file(directory / name, bytes);
    }
    return whole;
}

bool write_manifest(const Schema& schema, const char* path, const std::vector<const char*>& pieces)
{
    std::vector<zelm_config_list> beside(pieces.size());
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        beside[i].with_texts = 1;
        if (beside[i].load_arglist(pieces[i]) != 0) {
            std::fprintf(stderr, "schema_writer: %s is no manifest\n", pieces[i]);
            return false;
        }
    }
    return write_file(path, manifest_of(schema, beside));
}

}  // namespace

int main(int argc, char** argv)
{
    const std::vector<const char*> arguments(argv + 1, argv + argc);
    if (arguments.size() == 2 && std::string(arguments[0]) == "--json-schemas")
        return write_json_schemas(arguments[1]) ? 0 : 1;
    if (arguments.size() == 2 && std::string(arguments[0]) == "--seeds")
        return write_seeds(arguments[1]) ? 0 : 1;
    if (arguments.size() >= 3 && std::string(arguments[0]) == "--manifest")
        if (const Schema* const schema = find_schema(arguments[1]))
            return write_manifest(*schema, arguments[2], {arguments.begin() + 3, arguments.end()}) ? 0 : 1;
    std::fprintf(stderr, "usage: schema_writer --json-schemas DIR\n"
                         "       schema_writer --manifest DRIVER FILE [PIECE ...]\n"
                         "       schema_writer --seeds DIR\n");
    return 2;
}
