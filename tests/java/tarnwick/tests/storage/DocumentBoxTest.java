package tarnwick.tests.storage;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tarnwick.zel.wrapper.box.zel_fnd_document_box_moduleJNI.*;

import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.Calendar;
import java.util.Date;
import java.util.GregorianCalendar;
import java.util.LinkedList;
import java.util.List;
import java.util.Locale;
import java.util.TimeZone;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimBox;
import tarnwick.sim.SimDevice;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.box.document.RemovableMemoryFileImpl;
import tarnwick.zel.box.document.RemovableMemoryFileInfoImpl;

/** The document manager's listing and deletion, their trace lines, and the dates of the records. */
class DocumentBoxTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    @RegisterExtension
    final StorageFixture f = new StorageFixture();
    private long manager;
    private Locale locale;
    private TimeZone zone;

    static final long PATH_ERROR = 0x0401020BL;

    @BeforeEach
    void setUp() {
        manager = zel_fnd_document_manager_zel_fnd_get_instance();
        locale = Locale.getDefault();
        zone = TimeZone.getDefault();
        Locale.setDefault(Locale.US);
        TimeZone.setDefault(TimeZone.getTimeZone("UTC"));  // the process's TZ is UTC too
    }

    @AfterEach
    void tearDown() {
        Locale.setDefault(locale);
        TimeZone.setDefault(zone);
    }

    List<Object> list(String path, int expected) {
        ArrayList<Object> out = new ArrayList<>();
        assertEquals(expected, zel_fnd_document_manager_zel_fnd_get_easy_box_list(manager, null, path, out));
        return out;
    }

    static List<String> traces() {
        List<String> out = new ArrayList<>();
        for (String l : SimDevice.traceLines()) {
            if (l.contains("zel_fnd_document_manager[")) out.add(l.replaceAll("\\[\\d{4}\\]", "[####]"));
        }
        return out;
    }

    static String line(int level, String op, String msg) {
        return level + " zel_fnd_document_manager[####]::" + op + "," + msg;
    }

    /**
     * The seven lines a listing of three entries traces for entry {@code count}, size and date as
     * the device prints its long (32 bits).
     */
    static List<String> entryLines(int count, String name, int size, int date, String path, int type) {
        String dashes = "-------------------------------------------";
        assertEquals(43, dashes.length());
        List<String> out = new ArrayList<>();
        for (String msg : new String[] {"count=(" + count + "), total_num=(3), get_num=(1)", "name=(" + name + ")",
                                        "size=(" + size + ")", "date=(" + date + ")", "path=(" + path + ")",
                                        "type=(" + type + ")", dashes}) {
            out.add(line(3, "zel_fnd_get_easy_box_list", msg));
        }
        return out;
    }

    /**
     * Deletes {@code path}: the document manager answers {@code expected} and traces the entry,
     * then {@code failure} (the result and its name) where the deletion fails.
     */
    private void assertDeletes(int expected, String path, String... failure) {
        int before = traces().size();
        assertEquals(expected, zel_fnd_document_manager_zel_fnd_delete_document(manager, null, path));
        List<String> lines = new ArrayList<>();
        lines.add(line(3, "zel_fnd_delete_document", "[Enter]. path=(" + path + ")"));
        for (String f : failure) lines.add(line(0, "zel_fnd_delete_document", f));
        List<String> after = traces();
        assertEquals(lines, after.subList(before, after.size()));
    }

    @Test
    void instanceIsOneForTheProcess() {
        assertTrue(manager != 0);
        assertEquals(manager, zel_fnd_document_manager_zel_fnd_get_instance());
    }

    @Test
    void listingBuildsOneRecordPerEntry() {
        SimBox.addDocument("/scan", "a.pdf", 1234, 0, 0);
        SimBox.addDocument("/scan", "b", 0, 86400, 1);           // a folder
        SimBox.addDocument("/scan", "c.jpg", 0xFFFFFFFFL, -1, 2);
        List<Object> out = list("/scan", 0);
        assertEquals(3, out.size());
        RemovableMemoryFileImpl a = (RemovableMemoryFileImpl) out.get(0);
        assertTrue(a.isFile(), "type 0 is a file");
        assertEquals("a.pdf", a.getInfo().getName());
        assertEquals(1234, a.getInfo().getDataSize());
        assertEquals("/scan/a.pdf", a.getInfo().getPath());
        RemovableMemoryFileImpl b = (RemovableMemoryFileImpl) out.get(1);
        assertFalse(b.isFile(), "type 1 is a folder");
        assertEquals("/scan/b", b.getInfo().getPath());
        RemovableMemoryFileImpl c = (RemovableMemoryFileImpl) out.get(2);
        assertTrue(c.isFile(), "type 2 is a file");
        assertEquals(0xFFFFFFFFL, c.getInfo().getDataSize(), "zero-extended");
        Calendar cal = new GregorianCalendar(TimeZone.getTimeZone("UTC"), Locale.US);
        cal.setTime(b.getInfo().getDate());
        assertEquals(1970, cal.get(Calendar.YEAR));
        assertEquals(Calendar.JANUARY, cal.get(Calendar.MONTH));
        assertEquals(2, cal.get(Calendar.DAY_OF_MONTH));
        assertEquals(0, cal.get(Calendar.HOUR_OF_DAY));
        cal.setTime(c.getInfo().getDate());
        assertEquals(1969, cal.get(Calendar.YEAR));
        assertEquals(23, cal.get(Calendar.HOUR_OF_DAY));
        assertEquals(59, cal.get(Calendar.SECOND));
        assertEquals(1, SimDevice.callCount("esv_zel_get_easy_box_info_prepare"));
        assertEquals("/scan, 1", SimDevice.calls("esv_zel_get_easy_box_info_prepare")[0].replaceAll(", \\d+, \\d+$", ""));
        assertEquals(3, SimDevice.callCount("esv_zel_get_easy_box_info"));
        assertEquals(1, SimDevice.callCount("esv_zel_get_easy_box_info_finish"));
        List<String> t = traces();
        assertEquals(line(3, "zel_fnd_get_easy_box_list", "[Enter] path = [/scan]"), t.get(0));
        assertEquals(entryLines(0, "a.pdf", 1234, 0, "/scan/a.pdf", 0), t.subList(1, 8));
        // Size and date traced as the device prints them (its long is 32 bits), the Java field zero-extended.
        assertEquals(entryLines(2, "c.jpg", -1, -1, "/scan/c.jpg", 2), t.subList(15, 22));
        assertEquals(22, t.size());
    }

    @Test
    void listingAppendsToWhatTheListHolds() {
        SimBox.addDocument("/f", "x", 1, 0, 0);
        ArrayList<Object> out = new ArrayList<>();
        out.add("before");
        assertEquals(0, zel_fnd_document_manager_zel_fnd_get_easy_box_list(manager, null, "/f", out));
        assertEquals(2, out.size());
        assertEquals("before", out.get(0));
    }

    @Test
    void emptyFolderStillFinishes() {
        SimBox.addFolder("/empty");
        assertEquals(0, list("/empty", 0).size());
        assertEquals(1, SimDevice.callCount("esv_zel_get_easy_box_info_finish"));
        assertEquals(0, SimDevice.callCount("esv_zel_get_easy_box_info"));
        assertEquals(List.of(line(3, "zel_fnd_get_easy_box_list", "[Enter] path = [/empty]"),
                             line(3, "zel_fnd_get_easy_box_list", "total_num == 0.")), traces());
    }

    @Test
    void passWithoutEntryUsesUpOneOfTheTotal() {
        for (String n : new String[] {"1", "2", "3"}) SimBox.addDocument("/g", n, 1, 0, 0);
        SimBox.forceEntry(0, 0, 0, new byte[0], 0, 0, new byte[0], 1);
        List<Object> out = list("/g", 0);
        assertEquals(2, out.size());
        assertEquals("1", ((RemovableMemoryFileImpl) out.get(0)).getInfo().getName());
        assertEquals("2", ((RemovableMemoryFileImpl) out.get(1)).getInfo().getName());
        assertEquals(3, SimDevice.callCount("esv_zel_get_easy_box_info"));
        assertTrue(traces().contains(line(3, "zel_fnd_get_easy_box_list", "get_num = 0")));
        assertEquals(1, SimDevice.callCount("esv_zel_get_easy_box_info_finish"));
    }

    @Test
    void failedFinishAfterAFullListingStillSucceeds() {
        SimBox.addDocument("/h", "d", 1, 0, 0);
        SimDevice.forceResult("esv_zel_get_easy_box_info_finish", 0x04010201L, 1);
        assertEquals(1, list("/h", 0).size());
        assertEquals(line(0, "zel_fnd_get_easy_box_list", "result(67174913)"), traces().get(traces().size() - 1));
        SimBox.reset();  // the forced finish left the listing open on the device
    }

    @Test
    void failedPrepareReturnsOneWithoutFinishing() {
        assertEquals(0, list("/nothere", 1).size());
        assertEquals(0, SimDevice.callCount("esv_zel_get_easy_box_info_finish"));
        assertEquals(List.of(line(3, "zel_fnd_get_easy_box_list", "[Enter] path = [/nothere]"),
                             line(0, "zel_fnd_get_easy_box_list", "result(67174923)")), traces());
    }

    // A listing of `path` that fails after the prepare: nothing listed, the listing finished once,
    // `error` traced.
    private void assertFailedListing(String path, String error) {
        assertEquals(0, list(path, 1).size());
        assertEquals(1, SimDevice.callCount("esv_zel_get_easy_box_info_finish"));
        assertTrue(traces().contains(line(0, "zel_fnd_get_easy_box_list", error)));
    }

    @Test
    void failedFetchFreesAndFinishes() {
        for (String n : new String[] {"1", "2", "3"}) SimBox.addDocument("/k", n, 1, 0, 0);
        SimDevice.forceResult("esv_zel_get_easy_box_info", 0x0401020AL, 1);
        assertFailedListing("/k", "result(67174922)");
    }

    @Test
    void bufferAllocationFailure() {
        SimBox.addDocument("/m", "1", 1, 0, 0);
        SimDevice.failAlloc(1);
        assertFailedListing("/m", "easy_box_info == NULL.");
        assertEquals(0, SimDevice.callCount("esv_zel_get_easy_box_info"));
    }

    @Test
    void listingLimitOfTheBox() {
        SimBox.addDocument("/n", "1", 1, 0, 0);
        SimBox.setListingLimit(0);
        assertEquals(0, list("/n", 1).size());
        assertTrue(traces().contains(line(0, "zel_fnd_get_easy_box_list", "result(67174920)")));
    }

    @Test
    void otherListsAndNullFinishAndFail() {
        SimBox.addDocument("/o", "1", 1, 0, 0);
        LinkedList<Object> linked = new LinkedList<>();
        assertEquals(1, zel_fnd_document_manager_zel_fnd_get_easy_box_list(manager, null, "/o", linked));
        assertEquals(0, linked.size());
        assertEquals(1, zel_fnd_document_manager_zel_fnd_get_easy_box_list(manager, null, "/o", null));
        assertEquals(1, zel_fnd_document_manager_zel_fnd_get_easy_box_list(manager, null, "/o", "a string"));
        assertEquals(3, SimDevice.callCount("esv_zel_get_easy_box_info_finish"));
        // A subclass of ArrayList is an ArrayList.
        ArrayList<Object> sub = new ArrayList<Object>() {};
        assertEquals(0, zel_fnd_document_manager_zel_fnd_get_easy_box_list(manager, null, "/o", sub));
        assertEquals(1, sub.size());
    }

    @Test
    void exceptionOfAddIsLeftForTheCaller() {
        for (String n : new String[] {"1", "2", "3"}) SimBox.addDocument("/p", n, 1, 0, 0);
        ArrayList<Object> throwing = new ArrayList<Object>() {
            @Override
            public boolean add(Object o) {
                if (size() == 1) throw new IllegalStateException("list full");
                return super.add(o);
            }
        };
        IllegalStateException e = assertThrows(IllegalStateException.class,
            () -> zel_fnd_document_manager_zel_fnd_get_easy_box_list(manager, null, "/p", throwing));
        assertEquals("list full", e.getMessage());
        assertEquals(1, throwing.size());
        assertEquals(2, SimDevice.callCount("esv_zel_get_easy_box_info"));
        assertEquals(1, SimDevice.callCount("esv_zel_get_easy_box_info_finish"));
    }

    @Test
    void namesArePassedBoundedAndConverted() {
        byte[] full = new byte[1531];
        java.util.Arrays.fill(full, (byte) 'n');
        byte[] odd = {'a', (byte) 0xC3, 'b'};
        SimBox.forcePrepare(0, 77, 2, 1);
        SimBox.forceEntry(0, 1, 0, full, 0, 5, full, 1);
        SimBox.forceEntry(0, 1, 0, odd, 0, 5, "/x/\uD83D\uDE00".getBytes(StandardCharsets.UTF_8), 1);
        SimDevice.forceResult("esv_zel_get_easy_box_info_finish", 0, 1);
        List<Object> out = list("/forced", 0);
        assertEquals(2, out.size());
        RemovableMemoryFileInfoImpl i0 = ((RemovableMemoryFileImpl) out.get(0)).getInfo();
        assertEquals(1531, i0.getName().length(), "bounded by the field, unterminated");
        assertEquals(1531, i0.getPath().length());
        RemovableMemoryFileInfoImpl i1 = ((RemovableMemoryFileImpl) out.get(1)).getInfo();
        assertEquals("a\uDCC3b", i1.getName());
        assertEquals("/x/\uD83D\uDE00", i1.getPath());
        assertEquals("77", SimDevice.calls("esv_zel_get_easy_box_info_finish")[0]);
    }

    @Test
    void deletion() {
        SimBox.addDocument("/q", "doc", 1, 0, 0);
        SimBox.addFolder("/q/folder");
        assertEquals(List.of(), traces());
        assertDeletes(0, "/q/doc");
        assertFalse(SimBox.exists("/q/doc"));
        assertDeletes(8, "/q/doc", "result(67174923)=ESV_ZEL_COMMON_PATH_ERROR");
        assertDeletes(1, "/q/folder", "result(67174913)=UNKNOWN");
        SimDevice.forceResult("esv_zel_delete_easy_document", 0x0401020BL, 1);
        assertDeletes(8, "/any", "result(67174923)=ESV_ZEL_COMMON_PATH_ERROR");
        SimDevice.forceResult("esv_zel_delete_easy_document", 5, 1);
        assertDeletes(1, "/any", "result(5)=UNKNOWN");
        SimDevice.forceResult("esv_zel_delete_easy_document", 0x0401020CL, 1);
        assertDeletes(1, "/any", "result(67174924)=UNKNOWN");
        NullPointerException e = assertThrows(NullPointerException.class,
            () -> zel_fnd_document_manager_zel_fnd_delete_document(manager, null, null));
        assertEquals("null std::string", e.getMessage());
    }

    /** The date a file information built from Java gets from the device time {@code seconds}. */
    private static Date dateOf(int seconds) {
        long info = new_zel_fnd_removable_memory_file_info();
        try {
            Object o = zel_fnd_removable_memory_file_info_create_removable_memory_file_info(info, null);
            zel_fnd_removable_memory_file_info_set_field_date(info, null, o, seconds);
            return ((RemovableMemoryFileInfoImpl) o).getDate();
        } finally {
            delete_zel_fnd_removable_memory_file_info(info);
        }
    }

    @Test
    void dateOfZeroIsTheLocalEpochWithTheMillisecondsOfNow() {
        long before = System.currentTimeMillis() % 1000;
        Date d = dateOf(0);
        long after = System.currentTimeMillis() % 1000;
        assertNotNull(d);
        long ms = d.getTime() % 1000;
        assertEquals(0, d.getTime() / 1000, "the epoch second in UTC");
        assertTrue(after >= before ? (ms >= before && ms <= after) : (ms >= before || ms <= after),
                   "milliseconds of the moment: " + ms + " in [" + before + ", " + after + "]");
    }

    @Test
    void dateFollowsTheJvmDefaultTimeZoneAndTheDeviceClock() {
        // The device clock is UTC (TZ of the process); a JVM in another zone reads the same wall
        // time in its own zone: 1970-01-01 00:00:00 Tokyo.
        TimeZone.setDefault(TimeZone.getTimeZone("Asia/Tokyo"));
        long s = Math.floorDiv(dateOf(0).getTime(), 1000L);
        assertEquals(-9 * 3600, s);
    }

    @Test
    void nonGregorianDefaultLocaleShiftsTheYear() {
        // A device user whose locale has the Buddhist calendar: the year 1970 of the clock is taken
        // as Buddhist year 1970, i.e. 1427 of the Gregorian calendar.
        Locale.setDefault(Locale.forLanguageTag("th-TH-u-ca-buddhist"));
        Date d = dateOf(86400 * 31);
        Calendar g = new GregorianCalendar(TimeZone.getTimeZone("UTC"), Locale.US);
        g.setTime(d);
        assertEquals(1970 - 543, g.get(Calendar.YEAR));
        assertEquals(Calendar.FEBRUARY, g.get(Calendar.MONTH));
        assertEquals(1, g.get(Calendar.DAY_OF_MONTH));
    }

    @Test
    void buildersFromJava() {
        long info = new_zel_fnd_removable_memory_file_info();
        long file = new_zel_fnd_removable_memory_file();
        try {
            Object i = zel_fnd_removable_memory_file_info_create_removable_memory_file_info(info, null);
            Object fo = zel_fnd_removable_memory_file_create_removable_memory_file(file, null);
            assertTrue(i instanceof RemovableMemoryFileInfoImpl);
            assertTrue(fo instanceof RemovableMemoryFileImpl);
            zel_fnd_removable_memory_file_info_set_field_name(info, null, i, "name \uD83D\uDE00 \u0000 x");
            zel_fnd_removable_memory_file_info_set_field_path(info, null, i, "/p");
            zel_fnd_removable_memory_file_info_set_field_data_size(info, null, i, -1L);
            zel_fnd_removable_memory_file_set_field_info(file, null, fo, i);
            zel_fnd_removable_memory_file_set_field_isfile(file, null, fo, true);
            RemovableMemoryFileImpl r = (RemovableMemoryFileImpl) fo;
            assertSame(i, r.getInfo());
            assertTrue(r.isFile());
            assertEquals("name \uD83D\uDE00 \u0000 x", r.getInfo().getName(), "Java text comes back unchanged");
            assertEquals("/p", r.getInfo().getPath());
            assertEquals(0xFFFFFFFFL, r.getInfo().getDataSize(), "32 bits, zero-extended");
            zel_fnd_removable_memory_file_info_set_field_name(info, null, i, null);
            assertNull(r.getInfo().getName());
            zel_fnd_removable_memory_file_set_field_info(file, null, fo, null);
            assertNull(r.getInfo());
            zel_fnd_removable_memory_file_set_field_isfile(file, null, fo, false);
            assertFalse(r.isFile());
        } finally {
            delete_zel_fnd_removable_memory_file_info(info);
            delete_zel_fnd_removable_memory_file(file);
        }
        delete_zel_fnd_removable_memory_file_info(0);
        delete_zel_fnd_removable_memory_file(0);
    }

    @Test
    void manyEntriesKeepLocalReferencesFlat() {
        for (int i = 0; i < 3000; i++) SimBox.addDocument("/big", String.format("%05d", i), i, i, i % 3);
        List<Object> out = list("/big", 0);
        assertEquals(3000, out.size());
        RemovableMemoryFileImpl last = (RemovableMemoryFileImpl) out.get(2999);
        assertEquals("02999", last.getInfo().getName());
        assertEquals(2999, last.getInfo().getDataSize());
        assertFalse(((RemovableMemoryFileImpl) out.get(1)).isFile());
    }
}
