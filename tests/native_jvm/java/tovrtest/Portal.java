package tovrtest;

/** A class whose members a JavaClass holder looks up; its constructor throws on demand. */
public class Portal {
    public static boolean throwOnCreate;
    public String name;
    public int count;

    public Portal() {
        if (throwOnCreate) throw new IllegalStateException("refused");
    }

    public static int twice(int x) {
        return 2 * x;
    }
}
