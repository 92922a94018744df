import tarnwick.zel.wrapper.system.cmt_time;

/**
 * How the module classes find libtovrCMT.so: "by-path FILE" loads it the way a framework does
 * (System.load) before the first use; "none" uses a module with nothing loaded. Prints the
 * year of a time, or the one line of the error.
 */
public class LoaderCheck {
    public static void main(String[] args) {
        if (args[0].equals("by-path")) System.load(args[1]);
        try {
            System.out.println("year " + new cmt_time(1230768000L).getYear());
        } catch (UnsatisfiedLinkError e) {
            System.out.println(e.getClass().getName() + ": " + e.getMessage());
            try {
                new cmt_time(0);
            } catch (Throwable again) {
                System.out.println("again: " + again.getClass().getName());
            }
        }
    }
}
