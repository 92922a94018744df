package tarnwick.zel.address.attribute;

/**
 * What an FTP and an SMB (shared folder) destination share: the same five fields, which the
 * library sets by name on either class (a field of this class is found through the subclass).
 */
abstract class ServerInfo extends AddressPart {
    private String host;
    private String path;
    private int port;
    private String loginName;
    private String password;

    ServerInfo() {}

    ServerInfo(String host, String path, int port, String loginName, String password) {
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
    Object[] fields() {
        return new Object[] {"host", host, "path", path, "port", port, "loginName", loginName, "password", password};
    }
}
