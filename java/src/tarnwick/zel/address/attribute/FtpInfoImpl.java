package tarnwick.zel.address.attribute;

/**
 * The FTP destination of an address.
 *
 * <p>Made by the address book's search (fields filled by the library); applications read it.
 */
public class FtpInfoImpl extends AddressPart {
    private static final String[] NAMES = {"host", "path", "port", "loginName", "password"};

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
    String[] names() {
        return NAMES;
    }

    @Override
    Object[] values() {
        return new Object[] {host, path, port, loginName, password};
    }
}
