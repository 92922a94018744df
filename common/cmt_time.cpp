#include "cmt_time.h"

#include <ctime>

#include "emw_clb_time.h"

namespace tarnwick {

cmt_time::cmt_time(unsigned long t)
    : m_time(static_cast<std::uint32_t>(t)),
      m_year(1970),
      m_month(1),
      m_date(1),
      m_hour(0),
      m_minute(0),
      m_second(0) {
    // The device reads the count as signed: 2^31 and beyond keep the defaults.
    if (static_cast<std::int32_t>(m_time) < 0) return;
    std::time_t seconds = static_cast<std::time_t>(m_time);
    std::tm fields;
    if (gmtime_r(&seconds, &fields) == nullptr) return;
    m_year = fields.tm_year + 1900;
    m_month = fields.tm_mon + 1;
    m_date = fields.tm_mday;
    m_hour = fields.tm_hour;
    m_minute = fields.tm_min;
    m_second = fields.tm_sec;
}

cmt_time::cmt_time() {
    // The temporary leaves this object's calendar fields as they are; Java reads only the
    // daylight flag and offset of such an object.
    cmt_time(0);
    getLocalTime();
}

void cmt_time::getLocalTime() {
    std::time_t now = std::time(nullptr);
    tzset();
    std::tm local;
    emwCLBLocalTime_r(&now, &local);
    m_daylight = local.tm_isdst;
    m_gmtoff = static_cast<std::int32_t>(local.tm_gmtoff);
}

}  // namespace tarnwick
