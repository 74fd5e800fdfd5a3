// A driver in C++: it shows how long it has run, and a title that can be changed meanwhile. zelm_driver is
// installed by "cmake --install build --component driver". Put the program in the place of a driver, such as
// /usr/bin/zelm_out_newtek_ndi, and "zelm_outctl -c start" starts it with "--file SETTINGS".

#include <chrono>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>
#include <zelm_driver/server.hpp>

class Example : public zelm_driver::Item {
public:
    explicit Example(const char* settings_path)
    {
        std::ifstream settings(settings_path);
        for (std::string line; std::getline(settings, line);)
            if (line.compare(0, 6, "title=") == 0)
                m_title = line.substr(6);
    }

    void report(zelm_driver::Report& to) override
    {
        const auto runs = std::chrono::steady_clock::now() - m_started;
        to.status("active", "1");
        to.status("title", m_title);
        to.other_status("seconds", std::to_string(runs / std::chrono::seconds(1)));
    }

    void set(const std::string& key, const std::string& value) override
    {
        if (key == "title")
            m_title = value.empty() ? "untitled" : value;
    }

private:
    std::chrono::steady_clock::time_point m_started = std::chrono::steady_clock::now();
    std::string m_title = "untitled";
};

int main(int argc, char** argv)
{
    if (argc != 3 || std::strcmp(argv[1], "--file") != 0) {
        std::fprintf(stderr, "usage: driver --file SETTINGS\n");
        return 1;
    }
    Example example(argv[2]);
    if (zelm_driver::serve(argv[2], example))
        return 0;
    std::perror(argv[2]);
    return 1;
}
