# tarnwick.zel.wrapper.system.cmt_commonJNI: start-up and time values (14 natives).
# Java declarations of the natives (parameter names dropped); made with
# tests/tools/sig-gen.py exports/api/cmt_commonJNI.api
long new_cmt_init()
void delete_cmt_init(long)
int cmt_init_init()
long new_cmt_time__SWIG_0()
long new_cmt_time__SWIG_1(long)
void delete_cmt_time(long)
int cmt_time_getYear(long, cmt_time)
int cmt_time_getMonth(long, cmt_time)
int cmt_time_getDate(long, cmt_time)
int cmt_time_getHour(long, cmt_time)
int cmt_time_getMinute(long, cmt_time)
int cmt_time_getSecond(long, cmt_time)
int cmt_time_getDaylightTime(long, cmt_time)
int cmt_time_getGMToffset(long, cmt_time)
