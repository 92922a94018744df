package tovrtest;

/** Has a no-argument constructor and no release(). */
public class Plain {
    public Plain() {}
}
