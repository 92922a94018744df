package tarnwick.tests.address;

import static org.junit.jupiter.api.Assertions.assertEquals;

import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.CyclicBarrier;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.address.SearchKey;
import tarnwick.sim.SimAddressBook;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.address.PersonalAddressImpl;
import tarnwick.zel.wrapper.address.CMT_ADDRESSBOOKJNI;

/** Two threads making the first search on one new address book at once, many books in a row. */
class AddressBookThreadsTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    @Test
    void twoThreadsOnAFreshBookBothFindEveryMatch() throws Exception {
        SimAddressBook.generate(3, 1);
        ExecutorService pool = Executors.newFixedThreadPool(2);
        try {
            for (int round = 0; round < 200; round++) {
                long book = CMT_ADDRESSBOOKJNI.new_cmt_address_book();
                CyclicBarrier start = new CyclicBarrier(2);
                List<Future<Object[]>> got = new ArrayList<>();
                for (int t = 0; t < 2; t++) {
                    got.add(pool.submit(() -> {
                        start.await();
                        return CMT_ADDRESSBOOKJNI.cmt_address_book_search_address(book, null, 1, new SearchKey("Person"));
                    }));
                }
                for (Future<Object[]> f : got) {
                    Object[] found = f.get();
                    assertEquals(3, found.length, "round " + round);
                    for (int i = 0; i < 3; i++) assertEquals(AddressFixture.generated(i + 1), (PersonalAddressImpl) found[i]);
                }
                CMT_ADDRESSBOOKJNI.delete_cmt_address_book(book);
            }
        } finally {
            pool.shutdown();
        }
    }
}
