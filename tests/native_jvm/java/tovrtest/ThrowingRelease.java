package tovrtest;

/** release() fails. */
public class ThrowingRelease {
    public ThrowingRelease() {}

    public void release() {
        throw new IllegalStateException("release failed");
    }
}
