package tarnwick.tests.address;

import static org.junit.jupiter.api.Assertions.assertEquals;

import java.util.ArrayList;
import java.util.List;
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
import tarnwick.zel.wrapper.address.CMT_ADDRESSBOOKJNI;

/** Shared steps of the address-book tests: a search through the module, its trace and calls. */
final class AddressFixture {
    static final String PREPARE = "esv_zel_search_personal_address_list_prepare";
    static final String FETCH = "esv_zel_search_personal_address_list";
    static final String FINISH = "esv_zel_search_personal_address_list_finish";

    private AddressFixture() {}

    /** One search through a book object made and deleted around it. */
    static Object[] search(int type, Object key) {
        long book = CMT_ADDRESSBOOKJNI.new_cmt_address_book();
        try {
            return CMT_ADDRESSBOOKJNI.cmt_address_book_search_address(book, null, type, key);
        } finally {
            CMT_ADDRESSBOOKJNI.delete_cmt_address_book(book);
        }
    }

    /** The address book's trace lines as "level operation,message" (module and line dropped). */
    static List<String> trace() {
        return SimDeviceExtension.trace("cmt_address_book");
    }

    static int count(String op) {
        return SimDevice.callCount(op);
    }

    /** No search and no platform block left open. */
    static void assertNothingOpen() {
        assertEquals(0, SimDevice.openResources(SimAddressBook.SEARCH), "open searches");
        assertEquals(0, SimDevice.openResources("platform block"), "platform blocks");
    }

    /** The search ended after {@code fetches} fetches and {@code finishes} finishes, leaving nothing open. */
    static void assertEnded(int fetches, int finishes) {
        assertEquals(fetches, count(FETCH));
        assertEquals(finishes, count(FINISH));
        assertNothingOpen();
    }

    /** Per-fetch count of each prepare, in order. */
    static List<String> prepares() {
        List<String> out = new ArrayList<>();
        for (String args : SimDevice.calls(PREPARE)) out.add(args.substring(0, args.indexOf(',')));
        return out;
    }

    static String five(int n) {
        return String.format("%05d", n);
    }

    /** The address the simulated device generates as entry n, as the library must build it. */
    static PersonalAddressImpl generated(int n) {
        return new PersonalAddressImpl(
                new NameInfoImpl("Person " + five(n), "person " + five(n)),
                new EmailInfoImpl("person" + five(n) + "@mfp.test"),
                new FtpInfoImpl("ftp" + five(n) + ".mfp.test", "/scan/" + five(n), 1000 + n % 1000, "ftpuser" + five(n),
                                "ftppw" + five(n)),
                new SmbInfoImpl("smb" + five(n) + ".mfp.test", "share/" + five(n), 2000 + n % 1000, "smbuser" + five(n),
                                "smbpw" + five(n)),
                new FaxInfoImpl("0312" + five(n), (byte) (n % 3), (byte) (n % 2), five(n), (byte) 1, (byte) (n % 10),
                                (byte) 1, (byte) (n % 100), "Fax Person " + five(n), "Department " + five(n),
                                "Company " + five(n), (byte) (n % 4)),
                new IfaxInfoImpl("ifax" + five(n) + "@mfp.test", (byte) (n % 2), (byte) (n % 5), (byte) (n % 4),
                                 (byte) (n % 3)));
    }
}
