package tarnwick.tests.address;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertTrue;
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
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.ValueSource;
import tarnwick.address.SearchKey;
import tarnwick.sim.SimAddressBook;
import tarnwick.sim.SimDevice;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.address.PersonalAddressImpl;

/** Searches of personal addresses through the address-book module, on the simulated book. */
class AddressBookTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    /** `matches` entries named "Person ..." among others named "Other ...". */
    private static void book(int matches) {
        for (int i = 1; i <= matches; ++i) {
            SimAddressBook.add(new SimAddressBook.Entry("Other " + i));
            SimAddressBook.generate(1, i);
        }
        SimAddressBook.add(new SimAddressBook.Entry("Other last"));
    }

    @ParameterizedTest
    @ValueSource(ints = {0, 2, -1, 1000})
    void typesOtherThanOneGiveNullWithoutTheFacade(int type) {
        SimAddressBook.generate(3, 1);
        assertNull(search(type, new SearchKey("Person")));
        assertEquals(0, SimDevice.allCalls().length);
        assertEquals(List.of("3 search_address,[Enter] type = [" + type + "]"), trace());
    }

    @ParameterizedTest
    @ValueSource(ints = {1, 19, 20, 21, 45})
    void everyMatchInBookOrderWithCountAndFetchPasses(int matches) {
        book(matches);
        Object[] found = search(1, new SearchKey("person"));
        assertNotNull(found);
        assertEquals(matches, found.length);
        assertSame(PersonalAddressImpl[].class, found.getClass());
        for (int i = 0; i < matches; ++i) assertEquals(generated(i + 1), found[i], "element " + i);

        int countFetches = matches / 20 + 1;
        assertEquals(List.of("20", "1"), AddressFixture.prepares());
        assertEquals(countFetches + matches, count(FETCH));
        assertEquals(2, count(FINISH));
        List<String> expected = new ArrayList<>();
        expected.add("3 search_address,[Enter] type = [1]");
        for (int left = matches; ; left -= 20) {
            expected.add("3 search_personal_address,ret_num = [" + Math.min(left, 20) + "]");
            if (left < 20) break;
        }
        expected.add("3 search_personal_address,plen = [" + matches + "]");
        assertEquals(expected, trace());
        assertNothingOpen();
    }

    @Test
    void exactlyTwentyMakesASecondCountFetchThatReturnsZero() {
        book(20);
        assertEquals(20, search(1, new SearchKey("Person")).length);
        assertEquals(List.of("3 search_address,[Enter] type = [1]", "3 search_personal_address,ret_num = [20]",
                             "3 search_personal_address,ret_num = [0]", "3 search_personal_address,plen = [20]"),
                     trace());
        assertEquals(2 + 20, count(FETCH));
    }

    @Test
    void fortyFiveCountsTwentyTwentyFiveThenFetchesOneByOne() {
        book(45);
        assertEquals(45, search(1, new SearchKey("Person")).length);
        String[] fetches = SimDevice.calls(FETCH);
        assertEquals(3 + 45, fetches.length);
        List<String> rets = new ArrayList<>();
        for (String line : trace()) if (line.contains("ret_num")) rets.add(line);
        assertEquals(List.of("3 search_personal_address,ret_num = [20]", "3 search_personal_address,ret_num = [20]",
                             "3 search_personal_address,ret_num = [5]"), rets);
        // Every fetch of both passes carries the key's name.
        for (String f : fetches) assertTrue(f.contains(", Person, "), f);
    }

    @Test
    void noMatchTracesNoMatchAndFinishesOnce() {
        book(0);
        assertNull(search(1, new SearchKey("Person")));
        assertEquals(List.of("3 search_address,[Enter] type = [1]", "3 search_personal_address,ret_num = [0]",
                             "3 search_personal_address,plen = [0]", "0 search_personal_address,No match!"),
                     trace());
        assertEquals(List.of("20"), AddressFixture.prepares());
        assertEquals(1, count(FINISH));
        assertNothingOpen();
    }

    @Test
    void tenThousandMatchesEachComplete() {
        SimAddressBook.generate(10_000, 1);
        Object[] found = search(1, new SearchKey(""));
        assertEquals(10_000, found.length);
        for (int i = 0; i < found.length; i += 997) assertEquals(generated(i + 1), found[i]);
        assertEquals(generated(10_000), found[9_999]);
        for (Object o : found) assertNotNull(o);
        assertEquals(10_000 / 20 + 1 + 10_000, count(FETCH));
        assertEquals("3 search_personal_address,plen = [10000]", trace().get(trace().size() - 1));
        assertNothingOpen();
    }

    @Test
    void everyFieldOfAGeneratedEntry() {
        SimAddressBook.generate(20, 1);
        Object[] found = search(1, new SearchKey("Person 00007"));
        assertEquals(1, found.length);
        PersonalAddressImpl a = (PersonalAddressImpl) found[0];
        assertEquals(generated(7), a);
        assertEquals("Person 00007", a.getName().getName());
        assertEquals("person 00007", a.getName().getPronunciation());
        assertEquals("person00007@mfp.test", a.getEmail().getMailAddress());
        assertEquals(1007, a.getFtp().getPort());
        assertEquals(2007, a.getSmb().getPort());
        assertEquals("00007", a.getFax().getFaxAddress());
        assertEquals(1, a.getFax().getBitrateType());  // 0x101
        assertEquals(3, a.getFax().getHonorificTitleType());  // 0x303
        assertEquals(1, a.getIfax().getModeType());  // 0x201
    }

    @Test
    void portTwentyOneAndBitRate0x102() {
        SimAddressBook.Entry e = new SimAddressBook.Entry("Port");
        e.ftpPort = 21;
        e.smbPort = 65535;
        e.communicationSpeed = 0x00000102;
        e.title = 0x7F7F7F80;
        e.mode = -1;
        e.ecm = (byte) 0xFF;
        SimAddressBook.add(e);
        PersonalAddressImpl a = (PersonalAddressImpl) search(1, new SearchKey("Port"))[0];
        assertEquals(21, a.getFtp().getPort());
        assertEquals(65535, a.getSmb().getPort());
        assertEquals(2, a.getFax().getBitrateType());
        assertEquals((byte) 0x80, a.getFax().getHonorificTitleType());
        assertEquals(-1, a.getIfax().getModeType());
        assertEquals(-1, a.getFax().getEcm());
    }

    private static byte[] filled(byte[] r, int offset, int width, char c) {
        Arrays.fill(r, offset, offset + width, (byte) c);
        return r;
    }

    @Test
    void unterminatedTextsStopAtTheirWidth() {
        byte[] r = new SimAddressBook.Entry("x").toBytes();
        filled(r, 0, 193, 'a');
        filled(r, 193, 193, 'b');
        filled(r, 1037, 131, 'p');  // SMB password up to byte 1167
        SimAddressBook.putText(r, 1168, 36, "0123");  // fax number right after it
        filled(r, 1209, 21, '7');  // sub-address without its NUL
        SimAddressBook.putText(r, 1230, 21, "SECRET");  // and its password
        filled(r, 1641, 195, 'd');  // department up to byte 1835
        filled(r, 1840, 132, 'i');  // Internet-fax address up to byte 1971
        filled(r, 1988, 132, 'm');  // mail address to the end
        SimAddressBook.addRecord(r);
        PersonalAddressImpl a = (PersonalAddressImpl) search(1, new SearchKey("aaa"))[0];
        assertEquals(SimDeviceExtension.repeat('a', 193), a.getName().getName());
        assertEquals(SimDeviceExtension.repeat('b', 193), a.getName().getPronunciation());
        assertEquals(SimDeviceExtension.repeat('p', 131), a.getSmb().getPassword());
        assertEquals("0123", a.getFax().getFaxNum());
        assertEquals(SimDeviceExtension.repeat('7', 21), a.getFax().getFaxAddress());
        assertEquals(SimDeviceExtension.repeat('d', 195), a.getFax().getDepartment());
        assertEquals(SimDeviceExtension.repeat('i', 132), a.getIfax().getIfaxAddress());
        assertEquals(SimDeviceExtension.repeat('m', 132), a.getEmail().getMailAddress());
    }

    @Test
    void keyObjNullGivesNullBeforeTheFacade() {
        SimAddressBook.generate(3, 1);
        assertNull(search(1, null));
        assertEquals(List.of("3 search_address,[Enter] type = [1]", "0 search_personal_address,keyObj==NULL"), trace());
        assertEquals(0, SimDevice.allCalls().length);
    }

    @Test
    void firstPrepareFails() {
        SimAddressBook.generate(3, 1);
        SimDevice.forceResult(PREPARE, 0x04010005L, 1);
        assertNull(search(1, new SearchKey("Person")));
        assertEquals(List.of("3 search_address,[Enter] type = [1]", "0 search_personal_address,Fail to prepare!"), trace());
        assertEnded(0, 0);
    }

    @Test
    void secondPrepareFails() {
        SimAddressBook.generate(3, 1);
        SimAddressBook.passPrepares(1);
        SimDevice.forceResult(PREPARE, 0x04010005L, 1);
        assertNull(search(1, new SearchKey("Person")));
        assertEquals(List.of("3 search_address,[Enter] type = [1]", "3 search_personal_address,ret_num = [3]",
                             "3 search_personal_address,plen = [3]", "0 search_personal_address,Fail to prepare!"),
                     trace());
        assertEquals(List.of("20", "1"), AddressFixture.prepares());
        assertEnded(1, 1);
    }

    @Test
    void countFetchFailsWithItsText() {
        SimAddressBook.generate(30, 1);
        SimAddressBook.passFetches(1);
        SimAddressBook.forceFetch(0x0401000BL, 7, null, 1);
        assertNull(search(1, new SearchKey("Person")));
        assertEquals(List.of("3 search_address,[Enter] type = [1]", "3 search_personal_address,ret_num = [20]",
                             "3 search_personal_address,ret_num = [7]",
                             "0 search_personal_address,[cmt_address_book::search_personal_address] Fail to search!, result = [0x0401000b]"),
                     trace());
        assertEquals(1, count(FINISH));
        assertNothingOpen();
    }

    @Test
    void fetchFailsInTheSecondPassWithItsUnbalancedText() {
        SimAddressBook.generate(3, 1);
        SimAddressBook.passFetches(1 + 2);
        SimAddressBook.forceFetch(0x04010011L, 0, null, 1);
        assertNull(search(1, new SearchKey("Person")));
        List<String> t = trace();
        assertEquals("0 search_personal_address,[Fail to search! result = [0x04010011]", t.get(t.size() - 1));
        assertEnded(1 + 3, 2);
    }

    @Test
    void failedArrayLeavesTheSecondSearchOpen() {
        // A count the VM cannot make an array of.
        SimAddressBook.forceFetch(0, 0x7FFFFFF0L, null, 1);
        assertNull(search(1, new SearchKey("Person")));
        List<String> t = trace();
        assertEquals("3 search_personal_address,plen = [2147483632]", t.get(t.size() - 2));
        assertEquals("0 search_personal_address,personalObjArray == NULL", t.get(t.size() - 1));
        assertEquals(List.of("20", "1"), AddressFixture.prepares());
        assertEquals(1, count(FINISH));
        // The leak the module keeps: the second search is never finished.
        assertEquals(1, SimDevice.openResources(SimAddressBook.SEARCH));
        assertEquals(1, SimAddressBook.openSearches());
        assertEquals(0, SimDevice.openResources("platform block"));
        SimAddressBook.reset();
        assertEquals(0, SimDevice.openResources(SimAddressBook.SEARCH));
    }

    @Test
    void recordAllocationFailsBeforeTheFetch() {
        SimAddressBook.generate(3, 1);
        SimAddressBook.failAllocAfterPrepares(2);
        assertNull(search(1, new SearchKey("Person")));
        List<String> t = trace();
        assertEquals("0 search_personal_address,address == NULL", t.get(t.size() - 1));
        assertEnded(1, 2);  // fetches: the count pass only
    }

    @Test
    void countBufferAllocationFails() {
        SimAddressBook.generate(3, 1);
        SimAddressBook.failAllocAfterPrepares(1);
        assertNull(search(1, new SearchKey("Person")));
        assertEquals(List.of("3 search_address,[Enter] type = [1]", "0 search_personal_address,buffer == NULL"), trace());
        assertEnded(0, 1);
    }

    @Test
    void bookGrowingBetweenThePassesGivesTheCountedNumber() {
        SimAddressBook.generate(5, 1);
        SimAddressBook.resizeAtPrepare(2, 50);
        Object[] found = search(1, new SearchKey("Person"));
        assertEquals(5, found.length);
        for (int i = 0; i < 5; ++i) assertEquals(generated(i + 1), found[i]);
        assertNothingOpen();
    }

    @Test
    void matchRuleIsACaselessPrefixOfTheName() {
        SimAddressBook.add(new SimAddressBook.Entry("Anna"));
        SimAddressBook.add(new SimAddressBook.Entry("anneliese"));
        SimAddressBook.add(new SimAddressBook.Entry("Bob Ann"));
        SimAddressBook.add(new SimAddressBook.Entry("AN"));
        Object[] found = search(1, new SearchKey("aNn"));
        assertEquals(2, found.length);
        assertEquals("Anna", ((PersonalAddressImpl) found[0]).getName().getName());
        assertEquals("anneliese", ((PersonalAddressImpl) found[1]).getName().getName());
        assertEquals(4, search(1, new SearchKey("")).length);
    }

    @Test
    void eachSearchUsesItsOwnHandles() {
        SimAddressBook.generate(2, 1);
        search(1, new SearchKey("Person"));
        String[] fetches = SimDevice.calls(FETCH);
        String[] finishes = SimDevice.calls(FINISH);
        assertArrayEquals(new String[] {"1", "2"}, finishes);
        assertTrue(fetches[0].startsWith("1, Person, "), fetches[0]);
        assertTrue(fetches[1].startsWith("2, Person, "), fetches[1]);
    }
}
