package tarnwick.tests.support;

import java.util.function.LongConsumer;
import java.util.function.LongSupplier;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.extension.RegisterExtension;

/**
 * The set-up of a test class whose cases each work on one native object of a module: the library
 * loaded (not started), a fresh device, and before each case a new object in {@code h}, deleted
 * after the case.
 *
 * <pre>
 * class AppInfoTest extends HandleFixture {
 *     AppInfoTest() {
 *         super(cmt_appinfoJNI::new_cmt_appinfo_proxy, cmt_appinfoJNI::delete_cmt_appinfo_proxy);
 *     }
 * </pre>
 */
public abstract class HandleFixture {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    /** The case's object. */
    protected long h;

    private final LongSupplier make;
    /** Deletes an object of the module's class. */
    protected final LongConsumer delete;

    protected HandleFixture(LongSupplier make, LongConsumer delete) {
        this.make = make;
        this.delete = delete;
    }

    @BeforeEach
    void makeHandle() {
        h = make.getAsLong();
    }

    @AfterEach
    void deleteHandle() {
        delete.accept(h);
    }
}
