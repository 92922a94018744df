// Calendar fields (UTC) of a count of seconds, and the device's local daylight flag and offset.
#ifndef TARNWICK_CMT_TIME_H
#define TARNWICK_CMT_TIME_H

#include <cstdint>

namespace tarnwick {

class cmt_time {
public:
    // Java numbers overloaded constructors in this order: new_cmt_time__SWIG_0 is this one.
    // Carries only the present daylight flag and offset; the calendar fields stay unset.
    cmt_time();
    // Only the low 32 bits of `t` count, as on the device.
    explicit cmt_time(unsigned long t);
    virtual ~cmt_time() {}

    void getLocalTime();

    int getYear() { return m_year; }
    int getMonth() { return m_month; }
    int getDate() { return m_date; }
    int getHour() { return m_hour; }
    int getMinute() { return m_minute; }
    int getSecond() { return m_second; }
    int getDaylightTime() { return m_daylight; }
    int getGMToffset() { return m_gmtoff; }

private:
    std::uint32_t m_time;
    std::int32_t m_year;
    std::int32_t m_month;
    std::int32_t m_date;
    std::int32_t m_hour;
    std::int32_t m_minute;
    std::int32_t m_second;
    std::int32_t m_daylight;
    std::int32_t m_gmtoff;
};

}  // namespace tarnwick

#endif
