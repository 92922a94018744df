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
import tarnwick.zel.address.PersonalAddressImpl;
import tarnwick.zel.address.attribute.EmailInfoImpl;
import tarnwick.zel.address.attribute.FaxInfoImpl;
import tarnwick.zel.address.attribute.FtpInfoImpl;
import tarnwick.zel.address.attribute.IfaxInfoImpl;
import tarnwick.zel.address.attribute.NameInfoImpl;
import tarnwick.zel.address.attribute.SmbInfoImpl;

/**
 * The fetch pass runs for index 0 to the counted total less one: when the book shrinks between
 * the passes, a fetch that succeeds with nothing still gives an address, made from the
 * zero-filled record, so the array holds no null where the count said an address would be.
 */
class AddressFetchPassTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    static final PersonalAddressImpl EMPTY = new PersonalAddressImpl(new NameInfoImpl("", ""), new EmailInfoImpl(""),
            new FtpInfoImpl("", "", 0, "", ""), new SmbInfoImpl("", "", 0, "", ""),
            new FaxInfoImpl("", (byte) 0, (byte) 0, "", (byte) 0, (byte) 0, (byte) 0, (byte) 0, "", "", "", (byte) 0),
            new IfaxInfoImpl("", (byte) 0, (byte) 0, (byte) 0, (byte) 0));

    @Test
    void aBookThatShrinksBetweenThePassesGivesEmptyAddressesForTheLostMatches() {
        SimAddressBook.generate(5, 1);
        SimAddressBook.resizeAtPrepare(2, 3);  // the second prepare sees 3 entries
        Object[] found = AddressFixture.search(1, new SearchKey("Person"));
        assertEquals(5, found.length);
        for (int i = 0; i < 3; ++i) assertEquals(AddressFixture.generated(i + 1), found[i]);
        assertEquals(EMPTY, found[3]);
        assertEquals(EMPTY, found[4]);
        assertEquals(1 + 5, SimDevice.callCount(AddressFixture.FETCH), "one count fetch, then one per index");
        assertEquals(2, SimDevice.callCount(AddressFixture.FINISH));
        assertEquals(List.of("3 search_address,[Enter] type = [1]", "3 search_personal_address,ret_num = [5]",
                "3 search_personal_address,plen = [5]"), AddressFixture.trace());
        assertEquals(0, SimDevice.openResources(SimAddressBook.SEARCH));
        assertEquals(0, SimDevice.openResources("platform block"));
    }

    @Test
    void aBookEmptiedBetweenThePassesGivesOnlyEmptyAddresses() {
        SimAddressBook.generate(2, 1);
        SimAddressBook.resizeAtPrepare(2, 0);
        Object[] found = AddressFixture.search(1, new SearchKey("Person"));
        assertEquals(2, found.length);
        assertEquals(EMPTY, found[0]);
        assertEquals(EMPTY, found[1]);
        assertEquals(0, SimDevice.openResources(SimAddressBook.SEARCH));
    }

    /** Claimed counts that would pass the largest int saturate there: no array is made of that many. */
    @Test
    void countsThatWouldOverflowSaturate() {
        SimAddressBook.generate(3, 1);
        SimAddressBook.forceFetch(0, 0x7FFFFFF0L, null, 2);
        assertNull(AddressFixture.search(1, new SearchKey("Person")));
        List<String> t = AddressFixture.trace();
        assertEquals("3 search_personal_address,plen = [2147483647]", t.get(t.size() - 2));
        assertEquals("0 search_personal_address,personalObjArray == NULL", t.get(t.size() - 1));
        SimAddressBook.reset();  // the second search stays open there: a required behaviour
    }
}
