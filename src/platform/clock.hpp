// The one reader of time. Local civil time; nothing else in the program asks the system what time it is.
#pragma once

#include <cstdint>
#include <string>

namespace kestrel::platform {

struct Moment {
    int year = 1970, month = 1, day = 1, hour = 0, minute = 0, second = 0;
};

Moment now();
Moment momentOf(std::int64_t seconds); // since 1970, as the file system stamps its entries

// Seconds since some fixed point, for spans only; a standing clock doesn't stop it.
double secondsRunning();

std::string dateText(const Moment& moment);  // "yyyymmdd"
std::string timeText(const Moment& moment);  // "hh:nn:ss"
std::string stampText(const Moment& moment); // "yyyymmdd hhnnss"

// For tests: from here on the clock stands at the moment; tickClock lets a standing clock move on by itself by so many
// seconds after each reading; passTime moves a standing clock on once (rolling days, months, years).
void standClock(const Moment& moment);
void passTime(int seconds);
void tickClock(int seconds);
void freeClock(); // back to the system's time

// The moment so many seconds later (negative: earlier); by whole months, clamped to the month's end.
Moment secondsLater(const Moment& moment, int seconds);
Moment monthsLater(const Moment& moment, int months);
Moment daysLater(const Moment& moment, int days);

} // namespace kestrel::platform
