#include "zelmctl/check/nearest_name.hpp"

#include <algorithm>
#include <tuple>
#include <utility>
#include <vector>

std::size_t distance(std::string_view one, std::string_view other)
{
    std::vector<std::size_t> before, above(other.size() + 1), row(other.size() + 1);
    for (std::size_t j = 0; j <= other.size(); ++j)
        above[j] = j;
    for (std::size_t i = 1; i <= one.size(); ++i) {
        row[0] = i;
        for (std::size_t j = 1; j <= other.size(); ++j) {
            const bool is_same = one[i - 1] == other[j - 1];
            row[j] = std::min({above[j] + 1, row[j - 1] + 1, above[j - 1] + (is_same ? 0 : 1)});
            if (i > 1 && j > 1 && one[i - 1] == other[j - 2] && one[i - 2] == other[j - 1])
                row[j] = std::min(row[j], before[j - 2] + 1);
        }
        before = std::exchange(above, row);
    }
    return above.back();
}

std::string suggestion(std::string_view name, std::string_view place, std::span<const KnownName> known)
{
    constexpr std::size_t LONGEST = 100;  // far beyond any name that is known
    if (name.size() < 2 || name.size() > LONGEST)
        return {};
    const std::size_t farthest = std::max<std::size_t>(1, name.size() / 3);
    const KnownName* nearest = nullptr;
    std::tuple best(farthest + 1, std::size_t{0});
    for (const KnownName& candidate : known) {
        const std::size_t size = candidate.name.size();
        if (std::max(size, name.size()) - std::min(size, name.size()) > std::get<0>(best))
            continue;  // so many letters at least are to be added or taken away
        const std::size_t letters = distance(name, candidate.name);
        if (letters > std::get<0>(best))
            continue;
        const std::tuple far(letters, distance(place, candidate.place));
        if (far < best) {
            best = far;
            nearest = &candidate;
        }
    }
    if (!nearest)
        return {};
    return "; did you mean \"" + (nearest->place.empty() ? nearest->name : nearest->place) + "\"?";
}
