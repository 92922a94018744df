package tovrtest;

public class NoDefaultConstructor {
    public NoDefaultConstructor(int value) {}
}
