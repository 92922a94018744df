// Calendar fields (UTC) of a count of seconds, and the device's local daylight flag and offset.
#ifndef TARNWICK_CMT_TIME_H
#define TARNWICK_CMT_TIME_H

#include <cstdint>

namespace tarnwick {

/**
 * Calendar fields (in UTC) of a count of seconds since 1970, and the device's local daylight
 * flag and offset from UTC. {@code new cmt_time(seconds)} fills the calendar fields: a time of
 * 2^31 seconds or more (as a signed 32-bit number, negative) gives 1970-01-01 00:00:00, and only
 * the low 32 bits of the argument count. {@code new cmt_time()} carries only the present
 * daylight flag ({@link #getDaylightTime()}) and offset ({@link #getGMToffset()}); its calendar
 * fields are not set.
 */
class cmt_time {
public:
    // Java numbers overloaded constructors in this order: new_cmt_time__SWIG_0 is this one.
    /** The present daylight flag and offset from UTC; the calendar fields are not set. */
    cmt_time();
    /** The calendar fields of {@code t} seconds since 1970 (only its low 32 bits count). */
    explicit cmt_time(unsigned long t);
    virtual ~cmt_time() {}

    void getLocalTime();

    /** The full year, for example 2009. */
    int getYear() { return m_year; }
    /** The month, 1 to 12. */
    int getMonth() { return m_month; }
    /** The day of the month, 1 to 31. */
    int getDate() { return m_date; }
    /** The hour, 0 to 23. */
    int getHour() { return m_hour; }
    /** The minute, 0 to 59. */
    int getMinute() { return m_minute; }
    /** The second, 0 to 60. */
    int getSecond() { return m_second; }
    /**
     * The device's daylight-saving flag: positive in effect, 0 not in effect, negative unknown.
     */
    int getDaylightTime() { return m_daylight; }
    /** The device's offset of local time from UTC in seconds, positive east of Greenwich. */
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
