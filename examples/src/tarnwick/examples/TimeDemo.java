package tarnwick.examples;

import tarnwick.zel.wrapper.system.cmt_common;
import tarnwick.zel.wrapper.system.cmt_commonJNI;
import tarnwick.zel.wrapper.system.cmt_init;
import tarnwick.zel.wrapper.system.cmt_time;

/**
 * Loads the library, starts it on the device and prints the calendar fields of a time and the
 * device's local offset.
 *
 * usage: TimeDemo [seconds since 1970]   (default: 1230768000)
 */
public final class TimeDemo {
    public static void main(String[] args) {
        System.loadLibrary("tovrCMT");
        long seconds = args.length > 0 ? Long.parseLong(args[0]) : 1230768000L;

        int rc = cmt_init.init();
        System.out.println("cmt_init.init() = " + rc);

        cmt_time t = new cmt_time(seconds);
        System.out.printf("time %d -> %04d-%02d-%02d %02d:%02d:%02d UTC%n", seconds, t.getYear(),
                t.getMonth(), t.getDate(), t.getHour(), t.getMinute(), t.getSecond());
        t.delete();

        cmt_time now = new cmt_time();
        System.out.println("local daylight flag = " + now.getDaylightTime()
                + ", offset from UTC = " + now.getGMToffset() + " s");
        now.delete();
        if (rc != 0) System.exit(1);
    }
}
