#include "zelmctl/check/check_manifest.hpp"

#include "platform/io.hpp"
#include "platform/mediaitem.hpp"

namespace {

std::string reason(const BrokenLine& broken)
{
    if (broken.is_rest)
        return "a line may have " + std::to_string(LineReader::LINE_LIMIT) +
               " bytes, and what is behind them counts as a line of its own";
    const std::string_view line = broken.text;
    const std::size_t equals = line.find('=');
    switch (broken.fault) {
    case ManifestFault::NO_MEMBER: break;
    case ManifestFault::NO_SECTION: return "there is no section yet that the member could belong to";
    case ManifestFault::OPEN_SECTION: return "a section ends in \"]\"";
    case ManifestFault::SECOND_SECTION: return in_quotes(line) + " has a section already";
    case ManifestFault::UNKNOWN_MEMBER: return "no section has a member " + in_quotes(line.substr(0, equals));
    case ManifestFault::UNKNOWN_FLAG:
        return "not all of these are flags: " + in_quotes(line.substr(equals + 1));
    case ManifestFault::LONG_LETTER: return "a letter is one byte: " + in_quotes(line.substr(equals + 1));
    }
    return "neither a section nor a member: " + in_quotes(line);
}

}  // namespace

bool check_manifest(int file, Findings& findings)
{
    zelm_config_list manifest;
    manifest.with_texts = 1;
    BrokenLine broken{};
    const bool whole = manifest.load_arglist(file, &broken) == 0;
    if (broken.number > 0)
        findings.add_at_line(broken.number, reason(broken));
    return whole || broken.number > 0;
}
