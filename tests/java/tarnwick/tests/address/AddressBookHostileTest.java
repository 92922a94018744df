package tarnwick.tests.address;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertNull;
import static tarnwick.tests.address.AddressFixture.FETCH;
import static tarnwick.tests.address.AddressFixture.FINISH;
import static tarnwick.tests.address.AddressFixture.PREPARE;
import static tarnwick.tests.address.AddressFixture.assertEnded;
import static tarnwick.tests.address.AddressFixture.assertNothingOpen;
import static tarnwick.tests.address.AddressFixture.count;
import static tarnwick.tests.address.AddressFixture.generated;
import static tarnwick.tests.address.AddressFixture.search;
import static tarnwick.tests.address.AddressFixture.trace;

import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;
import java.util.concurrent.TimeUnit;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.address.SearchKey;
import tarnwick.sim.SimAddressBook;
import tarnwick.sim.SimDevice;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.address.PersonalAddressImpl;
import tarnwick.zel.wrapper.address.CMT_ADDRESSBOOKJNI;

/**
 * Hostile calls of the address-book module: keys of the wrong kind, handles, huge and odd
 * names, a device that answers more or other than it was asked, threads.
 *
 * <p>Left out: a null or stale book handle for search_address (the wrapper does not test it; a
 * bad handle is the caller's fault).
 */
class AddressBookHostileTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    @Test
    void deleteOfTheNullHandleDoesNothing() {
        CMT_ADDRESSBOOKJNI.delete_cmt_address_book(0);
    }

    @Test
    void keyOfAnotherClassIsAMissingKey() {
        SimAddressBook.generate(3, 1);
        assertNull(search(1, "Person"));
        assertEquals(List.of("3 search_address,[Enter] type = [1]", "0 search_personal_address,keyObj is not a SearchKey"),
                     trace());
        assertEquals(1, count(PREPARE));
        assertEnded(0, 1);
    }

    @Test
    void keyWithoutANameIsAMissingKey() {
        SimAddressBook.generate(3, 1);
        assertNull(search(1, new SearchKey(null)));
        assertEquals(List.of("3 search_address,[Enter] type = [1]", "0 search_personal_address,keyObj.name==NULL"), trace());
        assertEnded(0, 1);
    }

    static class NarrowKey extends SearchKey {
        NarrowKey(String name) {
            super(name);
        }
    }

    @Test
    void subclassOfSearchKeyIsAKey() {
        SimAddressBook.generate(3, 1);
        assertEquals(3, search(1, new NarrowKey("Person")).length);
    }

    @Test
    void extremeTypes() {
        assertNull(search(Integer.MIN_VALUE, new SearchKey("")));
        assertNull(search(Integer.MAX_VALUE, new SearchKey("")));
        assertEquals(0, SimDevice.allCalls().length);
    }

    @Test
    void veryLongAndOddNames() {
        SimAddressBook.Entry e = new SimAddressBook.Entry("Zo\u00eb M\u00fcller \u65e5\u672c");
        e.mailAddress = "zo\u00eb@mfp.test";
        SimAddressBook.add(e);
        PersonalAddressImpl a = (PersonalAddressImpl) search(1, new SearchKey("zo\u00eb"))[0];
        assertEquals("Zo\u00eb M\u00fcller \u65e5\u672c", a.getName().getName());
        assertEquals("zo\u00eb@mfp.test", a.getEmail().getMailAddress());
        assertNull(search(1, new SearchKey("x".repeat(100_000))));
        assertNull(search(1, new SearchKey("Zo\u0000")));
        assertNothingOpen();
    }

    @Test
    void noSearchCanBeOpenedAtTheLimit() {
        SimAddressBook.generate(3, 1);
        SimAddressBook.setSearchLimit(0);
        assertNull(search(1, new SearchKey("Person")));
        assertEquals("0 search_personal_address,Fail to prepare!", trace().get(1));
        SimAddressBook.setSearchLimit(1);  // one at a time is enough: the passes do not overlap
        assertEquals(3, search(1, new SearchKey("Person")).length);
        assertNothingOpen();
    }

    @Test
    void deviceClaimingMoreThanAskedInTheCountPass() {
        SimAddressBook.generate(3, 1);
        SimAddressBook.forceFetch(0, 25, null, 1);  // more than the 20 the buffer holds
        Object[] found = search(1, new SearchKey("Person"));
        // 25 claimed, then 3 found on: 28 counted, 3 fetched; the fetches that find nothing
        // give addresses of empty records, never null.
        assertEquals(28, found.length);
        assertEquals(generated(3), found[2]);
        for (int i = 3; i < 28; i++) assertEquals("", ((PersonalAddressImpl) found[i]).getName().getName());
        assertNothingOpen();
    }

    @Test
    void recordWithoutAnyTerminator() {
        byte[] garbage = new byte[SimAddressBook.RECORD_SIZE];
        Arrays.fill(garbage, (byte) 'A');
        SimAddressBook.generate(1, 1);
        SimAddressBook.passFetches(1);
        SimAddressBook.forceFetch(0, 1, new byte[][] {garbage, garbage, garbage}, 1);
        PersonalAddressImpl a = (PersonalAddressImpl) search(1, new SearchKey("Person"))[0];
        assertEquals("A".repeat(193), a.getName().getName());
        assertEquals("A".repeat(21), a.getFax().getFaxAddress());
        assertEquals("A".repeat(36), a.getFax().getFaxNum());
        assertEquals("A".repeat(132), a.getEmail().getMailAddress());
        assertEquals(0x4141, a.getFtp().getPort());
        assertEquals(0x41, a.getFax().getBitrateType());
        assertEquals(0x41, a.getIfax().getFileType());
        assertNothingOpen();
    }

    @Test
    void oneBookObjectForManySearches() {
        SimAddressBook.generate(25, 1);
        long book = CMT_ADDRESSBOOKJNI.new_cmt_address_book();
        try {
            for (int i = 0; i < 200; ++i) {
                Object[] found = CMT_ADDRESSBOOKJNI.cmt_address_book_search_address(book, null, 1, new SearchKey("Person"));
                assertEquals(25, found.length);
            }
            assertNull(CMT_ADDRESSBOOKJNI.cmt_address_book_search_address(book, null, 1, "not a key"));
            assertEquals(25, CMT_ADDRESSBOOKJNI.cmt_address_book_search_address(book, null, 1, new SearchKey("")).length);
        } finally {
            CMT_ADDRESSBOOKJNI.delete_cmt_address_book(book);
        }
        assertNothingOpen();
    }

    @Test
    void oneBookObjectSharedByFourThreads() throws Exception {
        SimAddressBook.generate(21, 1);
        long book = CMT_ADDRESSBOOKJNI.new_cmt_address_book();
        ExecutorService pool = Executors.newFixedThreadPool(4);
        try {
            assertEquals(21, CMT_ADDRESSBOOKJNI.cmt_address_book_search_address(book, null, 1, new SearchKey("P")).length);
            List<Future<Integer>> results = new ArrayList<>();
            for (int t = 0; t < 4; ++t) {
                results.add(pool.submit(() -> {
                    for (int i = 0; i < 25; ++i) {
                        Object[] found = CMT_ADDRESSBOOKJNI.cmt_address_book_search_address(book, null, 1, new SearchKey("Person"));
                        assertEquals(generated(21), found[20]);
                    }
                    return 25;
                }));
            }
            for (Future<Integer> f : results) assertEquals(25, f.get(120, TimeUnit.SECONDS));
        } finally {
            pool.shutdownNow();
            pool.awaitTermination(60, TimeUnit.SECONDS);
            CMT_ADDRESSBOOKJNI.delete_cmt_address_book(book);
        }
        assertNothingOpen();
    }

    @Test
    void searchesOnFourThreads() throws Exception {
        SimAddressBook.generate(45, 1);
        ExecutorService pool = Executors.newFixedThreadPool(4);
        try {
            List<Future<Integer>> results = new ArrayList<>();
            for (int t = 0; t < 4; ++t) {
                results.add(pool.submit(() -> {
                    int ok = 0;
                    for (int i = 0; i < 25; ++i) {
                        Object[] found = search(1, new SearchKey("Person"));
                        assertNotNull(found);
                        assertEquals(45, found.length);
                        assertEquals(generated(45), found[44]);
                        ++ok;
                    }
                    return ok;
                }));
            }
            for (Future<Integer> f : results) assertEquals(25, f.get(120, TimeUnit.SECONDS));
        } finally {
            pool.shutdownNow();
        }
        assertNothingOpen();
    }
}
