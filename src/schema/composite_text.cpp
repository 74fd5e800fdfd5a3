#include "schema/composite_text.hpp"

#include <boost/algorithm/string/classification.hpp>
#include <boost/algorithm/string/join.hpp>
#include <boost/algorithm/string/split.hpp>

std::vector<std::string> split(const std::string& text, const char* separators)
{
    std::vector<std::string> parts;
    boost::algorithm::split(parts, text, boost::algorithm::is_any_of(separators));
    return parts;
}

std::string join(const std::vector<std::string>& parts, const std::string& separator)
{
    return boost::algorithm::join(parts, separator);
}
