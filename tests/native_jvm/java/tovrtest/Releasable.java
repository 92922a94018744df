package tovrtest;

/** Counts release() calls. */
public class Releasable {
    public static int released;

    public Releasable() {}

    public void release() {
        released++;
    }
}
