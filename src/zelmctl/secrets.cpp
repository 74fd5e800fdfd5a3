#include "zelmctl/secrets.hpp"

#include <functional>
#include <set>
#include <string>

#include "schema/schemas.hpp"

namespace {

using Keys = std::set<std::string, std::less<>>;

Keys secret_keys()
{
    Keys keys;
    for (const Schema& schema : SCHEMAS)
        for_each_member(
            schema.rows, [&](const std::string&, const std::string& key, const MemberFace& member) {
                if (member.row->marks.secret)
                    keys.insert(key);
            });
    return keys;
}

}  // namespace

bool is_secret(std::string_view key)
{
    static const Keys keys = secret_keys();
    return keys.contains(key);
}
