package tarnwick.zel.address.attribute;

import java.util.Objects;

/**
 * The FTP destination of an address.
 *
 * <p>Made by the address book's search (fields filled by the library); applications read it.
 */
public class FtpInfoImpl {
    private String host;
    private String path;
    private int port;
    private String loginName;
    private String password;

    /** An empty object; the library fills its fields. */
    public FtpInfoImpl() {}

    public FtpInfoImpl(String host, String path, int port, String loginName, String password) {
        this.host = host;
        this.path = path;
        this.port = port;
        this.loginName = loginName;
        this.password = password;
    }

    public String getHost() {
        return host;
    }

    public String getPath() {
        return path;
    }

    public int getPort() {
        return port;
    }

    public String getLoginName() {
        return loginName;
    }

    public String getPassword() {
        return password;
    }

    @Override
    public boolean equals(Object other) {
        if (this == other) return true;
        if (other == null || other.getClass() != getClass()) return false;
        FtpInfoImpl o = (FtpInfoImpl) other;
        return Objects.equals(host, o.host) && Objects.equals(path, o.path) && port == o.port && Objects.equals(loginName, o.loginName) && Objects.equals(password, o.password);
    }

    @Override
    public int hashCode() {
        return Objects.hash(host, path, port, loginName, password);
    }

    @Override
    public String toString() {
        return "FtpInfoImpl{" + "host=" + quote(host) + ", " + "path=" + quote(path) + ", " + "port=" + port + ", " + "loginName=" + quote(loginName) + ", " + "password=" + mask(password) + "}";
    }

    private static String quote(String s) {
        return s == null ? "null" : "\"" + s + "\"";
    }

    /** Passwords are not shown: only whether one is set. */
    private static String mask(String s) {
        return s == null ? "null" : s.isEmpty() ? "\"\"" : "***";
    }
}
