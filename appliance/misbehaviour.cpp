#include "misbehaviour.hpp"

namespace {

struct Switch {
    const char* key;
    bool Misbehaviour::*member;
};
constexpr Switch SWITCHES[] = {
    {"sim no accept", &Misbehaviour::no_accept},
    {"sim leave child", &Misbehaviour::leave_child},
    {"sim ignore sigterm", &Misbehaviour::ignore_sigterm},
    {"sim leave socket", &Misbehaviour::leave_socket},
    {"sim never answer", &Misbehaviour::never_answer},
    {"sim hang up", &Misbehaviour::hang_up},
    {"sim hang up mid", &Misbehaviour::hang_up_mid},
    {"sim hang up after", &Misbehaviour::hang_up_after},
    {"sim keep connections", &Misbehaviour::keep_connections},
    {"sim answer everything", &Misbehaviour::answer_everything},
    {"sim crash on report", &Misbehaviour::crash_on_report},
    {"sim odd entries", &Misbehaviour::odd_entries},
};

struct Amount {
    const char* key;
    std::uint64_t Misbehaviour::*member;
};
constexpr Amount AMOUNTS[] = {
    {"sim start ms", &Misbehaviour::start_ms},
    {"sim clients", &Misbehaviour::clients},
    {"sim leak bytes", &Misbehaviour::leak_bytes},
    {"sim shutdown ms", &Misbehaviour::shutdown_ms},
    {"sim exit after ms", &Misbehaviour::exit_after_ms},
    {"sim answer delay ms", &Misbehaviour::answer_delay_ms},
    {"sim flagged packets", &Misbehaviour::flagged_packets},
    {"sim big reply bytes", &Misbehaviour::big_reply_bytes},
};

struct Word {
    const char* key;
    std::string Misbehaviour::*member;
};
constexpr Word WORDS[] = {
    {"sim socket", &Misbehaviour::socket},
    {"sim crowd", &Misbehaviour::crowd},
    {"sim dies of", &Misbehaviour::dies_of},
    {"sim unanswered", &Misbehaviour::unanswered},
    {"sim corrupt", &Misbehaviour::corrupt},
};

}  // namespace

Misbehaviour::Misbehaviour(const ItemSettings& settings)
{
    for (const Word& each : WORDS)
        this->*each.member = setting_text(settings, each.key);
    for (const Switch& each : SWITCHES)
        this->*each.member = setting_text(settings, each.key) == "1";
    for (const Amount& each : AMOUNTS)
        if (!setting_text(settings, each.key).empty())
            this->*each.member = setting_number(settings, each.key);
}
