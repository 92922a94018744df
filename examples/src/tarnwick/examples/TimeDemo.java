package tarnwick.examples;

import tarnwick.zel.wrapper.system.cmt_init;
import tarnwick.zel.wrapper.system.cmt_time;

/**
 * Starts the library on the device and prints the calendar fields of a time and the device's
 * local offset. The module classes load the library themselves.
 *
 * usage: TimeDemo [seconds since 1970]   (default: 1230768000)
 */
public final class TimeDemo {
    public static void main(String[] args) {
        String command = System.getProperty("tovr.command", "TimeDemo") + " --time";
        long seconds = 1230768000L;
        if (args.length > 1) {
            System.err.println(command + ": takes one number of seconds since 1970, not " + args.length + " values");
            System.exit(2);
        }
        if (args.length == 1) {
            try {
                seconds = Long.parseLong(args[0]);
                if (seconds < 0 || seconds > 0xFFFFFFFFL) throw new NumberFormatException();
            } catch (NumberFormatException e) {
                System.err.println(command + ": \"" + args[0] + "\" is not a number of seconds since 1970 (0 to 4294967295)");
                System.exit(2);
            }
        }

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
