#include "schema/consume/consume_internet_mpeg.hpp"

#include "schema/fields/internet_mpeg.hpp"

void ConsumeInternetMpeg::createItems()
{
    create_items(PACKED<fields::INTERNET_MPEG>);
}
