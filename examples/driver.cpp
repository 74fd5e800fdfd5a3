// A driver that does nothing but answer. Installed as /usr/bin/zelm_out_WORD it runs items.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <map>
#include <string>
#include <zelm_driver.hpp>

int main(int argc, char** argv)
{
    if (argc < 3 || std::strcmp(argv[1], "--file") != 0)
        return 2;
    std::map<std::string, std::string> settings;
    std::ifstream file(argv[2]);
    for (std::string line; std::getline(file, line);)
        if (const auto equals = line.find('='); equals != std::string::npos && line[0] != '#')
            settings[line.substr(0, equals)] = line.substr(equals + 1);

    zelm::DriverServer server(
        [&settings] {
            zelm::Report report = {{"*active", "1"}};
            for (const auto& [key, value] : settings)
                report.emplace_back("*" + key, value);
            return report;
        },
        [&settings](const std::string& key, const std::string& value) { settings[key] = value; });
    if (!server.listen(argv[2]) || !server.serve()) {
        std::fprintf(stderr, "%s: %s\n", argv[2], std::strerror(errno));
        return 1;
    }
}
