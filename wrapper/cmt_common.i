// package tarnwick.zel.wrapper.system
// Library start-up and time values.
%module cmt_common

%include "tovr_conventions.i"

%{
#include "cmt_init.h"
#include "cmt_time.h"
using namespace tarnwick;
%}

namespace tarnwick {

class cmt_init {
public:
    virtual ~cmt_init();
    static int init();
};

class cmt_time {
public:
    cmt_time();
    cmt_time(unsigned long t);
    virtual ~cmt_time();
    int getYear();
    int getMonth();
    int getDate();
    int getHour();
    int getMinute();
    int getSecond();
    int getDaylightTime();
    int getGMToffset();
};

}
