#include "platform/clock.hpp"

#include <chrono>
#include <cstdio>
#include <ctime>
#include <optional>

namespace kestrel::platform {

namespace {

namespace chrono = std::chrono;

struct Clock {
    std::optional<Moment> standing;
    int tick = 0; // seconds that a standing clock moves on after each reading
};

Clock& theClock() {
    static Clock present;
    return present;
}

chrono::year_month_day dayOf(const Moment& moment) {
    return chrono::year(moment.year) / chrono::month(static_cast<unsigned>(moment.month)) /
           chrono::day(static_cast<unsigned>(moment.day));
}

Moment withDay(Moment moment, chrono::year_month_day day) {
    moment.year = static_cast<int>(day.year());
    moment.month = static_cast<int>(static_cast<unsigned>(day.month()));
    moment.day = static_cast<int>(static_cast<unsigned>(day.day()));
    return moment;
}

template <class... Numbers> std::string formatted(const char* format, Numbers... numbers) {
    char text[64];
    int length = std::snprintf(text, sizeof text, format, numbers...);
    return std::string(text, static_cast<std::size_t>(length));
}

} // namespace

Moment momentOf(std::int64_t seconds) {
    const std::time_t stamp = seconds;
    std::tm local{};
    localtime_r(&stamp, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

Moment now() {
    Clock& clock = theClock();
    if (!clock.standing) return momentOf(std::time(nullptr));
    Moment present = *clock.standing;
    passTime(clock.tick);
    return present;
}

double secondsRunning() {
    return chrono::duration<double>(chrono::steady_clock::now().time_since_epoch()).count();
}

std::string dateText(const Moment& moment) {
    return formatted("%04d%02d%02d", moment.year, moment.month, moment.day);
}

std::string timeText(const Moment& moment) {
    return formatted("%02d:%02d:%02d", moment.hour, moment.minute, moment.second);
}

std::string stampText(const Moment& moment) {
    return dateText(moment) + formatted(" %02d%02d%02d", moment.hour, moment.minute, moment.second);
}

void standClock(const Moment& moment) {
    theClock().standing = moment;
}

void passTime(int seconds) {
    auto& standing = theClock().standing;
    if (standing) standing = secondsLater(*standing, seconds);
}

void tickClock(int seconds) {
    theClock().tick = seconds;
}

void freeClock() {
    theClock() = Clock{};
}

Moment secondsLater(const Moment& moment, int seconds) {
    auto point = chrono::sys_seconds(chrono::sys_days(dayOf(moment))) + chrono::hours(moment.hour) +
                 chrono::minutes(moment.minute) + chrono::seconds(moment.second) + chrono::seconds(seconds);
    auto day = chrono::floor<chrono::days>(point);
    chrono::hh_mm_ss time(point - day);
    Moment later = withDay(moment, day);
    later.hour = static_cast<int>(time.hours().count());
    later.minute = static_cast<int>(time.minutes().count());
    later.second = static_cast<int>(time.seconds().count());
    return later;
}

Moment monthsLater(const Moment& moment, int months) {
    auto day = dayOf(moment) + chrono::months(months);
    return withDay(moment, day.ok() ? day : day.year() / day.month() / chrono::last);
}

Moment daysLater(const Moment& moment, int days) {
    return withDay(moment, chrono::sys_days(dayOf(moment)) + chrono::days(days));
}

} // namespace kestrel::platform
