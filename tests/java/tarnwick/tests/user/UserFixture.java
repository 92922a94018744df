package tarnwick.tests.user;

/** The facade codes the user and department tests name. */
final class UserFixture {
    static final long INVALID_PASSWORD = 0x04010401L;
    static final long NOT_FOUND = 0x04010402L;
    static final long PARAM_ERROR = 0x04010403L;
    static final long NOT_LOGGED_IN = 0x04010404L;
    static final long DUPLICATE = 0x04010405L;
    static final long USER_ERROR = 0x04010400L;
    static final long DEPT_ERROR = 0x04010801L;
    static final long DEPT_NOT_FOUND = 0x04010803L;
    static final long DEPT_DUPLICATE = 0x04010804L;

    private UserFixture() {}
}
