package tarnwick.tests.address;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;

import java.util.List;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.address.SearchKey;
import tarnwick.sim.SimAddressBook;
import tarnwick.sim.SimDevice;
import tarnwick.tests.support.SimDeviceExtension;

/** A search before the library was initialised: no VM known to it, so no environment. */
class AddressBookNoEnvTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    @Test
    void noEnvironmentGivesNullBeforeTheFacade() {
        SimAddressBook.generate(3, 1);
        assertNull(AddressFixture.search(1, new SearchKey("Person")));
        assertEquals(List.of("3 search_address,[Enter] type = [1]", "0 search_personal_address,Fail to get JNIEnv."),
                     AddressFixture.trace());
        assertEquals(0, SimDevice.allCalls().length);
        // A missing key is still told first.
        SimDevice.clearTrace();
        assertNull(AddressFixture.search(1, null));
        assertEquals(List.of("3 search_address,[Enter] type = [1]", "0 search_personal_address,keyObj==NULL"),
                     AddressFixture.trace());
    }
}
