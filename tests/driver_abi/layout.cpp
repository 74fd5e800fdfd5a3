// What a driver takes from the headers when it is compiled: types of functions, sizes, and the order of the
// virtual ones. What it takes from the library when it is linked stands in "symbols".
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <string>
#include <type_traits>

#include "zelm_driver/item_socket.hpp"
#include "zelm_driver/server.hpp"

using zelm_driver::Item;
using zelm_driver::ItemSocket;
using zelm_driver::Report;
using zelm_driver::Server;
using Text = const std::string&;

template <typename Type> constexpr bool is_one_pointer()
{
    return sizeof(Type) == sizeof(void*) && alignof(Type) == alignof(void*);
}

static_assert(is_one_pointer<Item>() && is_one_pointer<Report>(), "all that they have is virtual");
static_assert(is_one_pointer<ItemSocket>() && is_one_pointer<Server>(), "what they hold is hidden");
static_assert(!std::is_polymorphic<ItemSocket>::value && !std::is_polymorphic<Server>::value, "");
static_assert(std::is_same<decltype(&Report::status), bool (Report::*)(Text, Text)>::value, "");
static_assert(std::is_same<decltype(&Report::other_status), bool (Report::*)(Text, Text)>::value, "");
static_assert(std::is_same<decltype(&Item::report), void (Item::*)(Report&)>::value, "");
static_assert(std::is_same<decltype(&Item::set), void (Item::*)(Text, Text)>::value, "");
static_assert(std::is_same<decltype(&ItemSocket::listen), bool (ItemSocket::*)(Text, int)>::value, "");
static_assert(std::is_same<decltype(&ItemSocket::get), int (ItemSocket::*)() const>::value, "");
static_assert(std::is_same<decltype(&ItemSocket::leave), void (ItemSocket::*)()>::value, "");
static_assert(std::is_same<decltype(&Server::open), bool (Server::*)(Text)>::value, "");
static_assert(std::is_same<decltype(&Server::descriptor), int (Server::*)() const>::value, "");
static_assert(std::is_same<decltype(&Server::answer), void (Server::*)(Item&)>::value, "");
static_assert(std::is_same<decltype(&zelm_driver::serve), bool (*)(Text, Item&)>::value, "");

// A pointer to a virtual function begins with its place in the table, to which the mark of a virtual one is
// added.
template <typename Function> std::size_t place(Function function)
{
    std::size_t begin = 0;
    std::memcpy(&begin, &function, sizeof begin);
    return begin / sizeof(void*);
}

// Places 0 and 1 of an item are those of its destructor.
int main()
{
    const bool kept = place(&Report::status) == 0 && place(&Report::other_status) == 1 &&
                      place(&Item::report) == 2 && place(&Item::set) == 3;
    if (!kept)
        std::puts("virtual functions have other places than drivers know");
    return kept ? 0 : 1;
}
