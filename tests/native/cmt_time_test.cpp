#include "cmt_time.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

using tarnwick::cmt_time;

namespace {

void expect_fields(cmt_time& t, int y, int mo, int d, int h, int mi, int s) {
    EXPECT_EQ(y, t.getYear());
    EXPECT_EQ(mo, t.getMonth());
    EXPECT_EQ(d, t.getDate());
    EXPECT_EQ(h, t.getHour());
    EXPECT_EQ(mi, t.getMinute());
    EXPECT_EQ(s, t.getSecond());
}

struct ZoneGuard {
    explicit ZoneGuard(const char* zone) {
        const char* old = std::getenv("TZ");
        had_ = old != nullptr;
        if (had_) old_ = old;
        setenv("TZ", zone, 1);
        tzset();
    }
    ~ZoneGuard() {
        if (had_) setenv("TZ", old_.c_str(), 1); else unsetenv("TZ");
        tzset();
    }
    bool had_;
    std::string old_;
};

}  // namespace

TEST(CmtTime, ZeroIsTheEpoch) {
    cmt_time t(0);
    expect_fields(t, 1970, 1, 1, 0, 0, 0);
}

TEST(CmtTime, SignBitKeepsTheDefaults) {
    cmt_time t(2147483648UL);
    expect_fields(t, 1970, 1, 1, 0, 0, 0);
    cmt_time u(0xFFFFFFFFUL);
    expect_fields(u, 1970, 1, 1, 0, 0, 0);
}

TEST(CmtTime, LargestPositiveSecond) {
    cmt_time t(2147483647UL);
    expect_fields(t, 2038, 1, 19, 3, 14, 7);
}

TEST(CmtTime, NewYear2009IsUtcWhateverTheZone) {
    ZoneGuard zone("JST-9");
    cmt_time t(1230768000UL);
    expect_fields(t, 2009, 1, 1, 0, 0, 0);
}

TEST(CmtTime, DefaultObjectCarriesTheLocalOffset) {
    {
        ZoneGuard zone("CET-1");  // UTC+1, no daylight rule
        cmt_time t;
        EXPECT_EQ(0, t.getDaylightTime());
        EXPECT_EQ(3600, t.getGMToffset());
    }
    {
        ZoneGuard zone("EST+5");
        cmt_time t;
        EXPECT_EQ(0, t.getDaylightTime());
        EXPECT_EQ(-5 * 3600, t.getGMToffset());
    }
}

TEST(CmtTime, GetLocalTimeSeesAChangedZone) {
    ZoneGuard zone("UTC0");
    cmt_time t(86400UL);
    t.getLocalTime();
    EXPECT_EQ(0, t.getGMToffset());
    setenv("TZ", "XYZ-2", 1);
    t.getLocalTime();
    EXPECT_EQ(7200, t.getGMToffset());
    expect_fields(t, 1970, 1, 2, 0, 0, 0);  // calendar fields untouched
}
