package tarnwick.zel.address.attribute;

/**
 * The FTP destination of an address: host, path, port, login name and password.
 *
 * <p>Made by the address book's search (fields filled by the library); applications read it.
 */
public class FtpInfoImpl extends ServerInfo {
    /** An empty object; the library fills its fields. */
    public FtpInfoImpl() {}

    public FtpInfoImpl(String host, String path, int port, String loginName, String password) {
        super(host, path, port, loginName, password);
    }
}
