package tarnwick.tests.storage;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tarnwick.zel.wrapper.box.zel_fnd_document_box_moduleJNI.*;

import java.util.ArrayList;
import java.util.HashSet;
import java.util.List;
import java.util.Set;
import java.util.concurrent.Callable;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;
import org.junit.jupiter.api.MethodOrderer;
import org.junit.jupiter.api.Order;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.TestMethodOrder;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimBox;
import tarnwick.sim.SimDevice;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.box.document.RemovableMemoryFileImpl;
import tarnwick.zel.box.document.RemovableMemoryFileInfoImpl;

/** Calls an application should not make: the box module answers each without harm. */
@TestMethodOrder(MethodOrderer.OrderAnnotation.class)
class zel_fnd_document_box_moduleHostileTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    @RegisterExtension
    final StorageFixture f = new StorageFixture();

    @Test
    @Order(1)
    void firstInstanceRequestsRace() throws Exception {
        // First in this JVM: the instance does not exist yet.
        int n = 16;
        ExecutorService pool = Executors.newFixedThreadPool(n);
        CountDownLatch start = new CountDownLatch(1);
        List<Future<Long>> got = new ArrayList<>();
        for (int i = 0; i < n; i++) {
            got.add(pool.submit((Callable<Long>) () -> {
                start.await();
                return zel_fnd_document_manager_zel_fnd_get_instance();
            }));
        }
        start.countDown();
        Set<Long> handles = new HashSet<>();
        for (Future<Long> g : got) handles.add(g.get());
        pool.shutdown();
        assertEquals(1, handles.size());
        assertTrue(handles.iterator().next() != 0);
    }

    @Test
    void listArgumentsThatAreNoArrayList() {
        long m = zel_fnd_document_manager_zel_fnd_get_instance();
        SimBox.addDocument("/a", "d", 1, 0, 0);
        for (Object o : new Object[] {null, new Object(), "text", new java.util.LinkedList<>(), new Object[0],
                                      new java.util.Vector<>(), new int[3]}) {
            assertEquals(1, zel_fnd_document_manager_zel_fnd_get_easy_box_list(m, null, "/a", o));
        }
        assertEquals(7, SimDevice.callCount("esv_zel_get_easy_box_info_finish"));
        assertEquals(0, SimDevice.callCount("esv_zel_get_easy_box_info"));
        NullPointerException e = assertThrows(NullPointerException.class,
            () -> zel_fnd_document_manager_zel_fnd_get_easy_box_list(m, null, null, new ArrayList<>()));
        assertEquals("null std::string", e.getMessage());
        assertEquals(0, SimDevice.callCount("esv_zel_get_easy_box_info_prepare") - 7);
    }

    @Test
    void hugeAndOddPaths() {
        long m = zel_fnd_document_manager_zel_fnd_get_instance();
        StringBuilder b = new StringBuilder();
        for (int i = 0; i < 100_000; i++) b.append('p');
        assertEquals(1, zel_fnd_document_manager_zel_fnd_get_easy_box_list(m, null, b.toString(), new ArrayList<>()));
        assertEquals(8, zel_fnd_document_manager_zel_fnd_delete_document(m, null, b.toString()));
        assertEquals(8, zel_fnd_document_manager_zel_fnd_delete_document(m, null, "a\u0000b\uD800%s%n"));
        assertEquals(1, zel_fnd_document_manager_zel_fnd_get_easy_box_list(m, null, "%s%s%s%n", new ArrayList<>()));
        for (String line : SimDevice.traceLines()) assertTrue(line.length() < 400, "trace lines are bounded");
    }

    @Test
    void buildersRefuseObjectsOfOtherClasses() {
        long info = new_zel_fnd_removable_memory_file_info();
        long file = new_zel_fnd_removable_memory_file();
        try {
            Object notInfo = new Object();
            ClassCastException e = assertThrows(ClassCastException.class,
                () -> zel_fnd_removable_memory_file_info_set_field_name(info, null, notInfo, "x"));
            assertEquals("not a tarnwick.zel.box.document.RemovableMemoryFileInfoImpl", e.getMessage());
            assertThrows(ClassCastException.class, () -> zel_fnd_removable_memory_file_info_set_field_path(info, null, "str", "x"));
            assertThrows(ClassCastException.class, () -> zel_fnd_removable_memory_file_info_set_field_data_size(info, null, 5, 1));
            assertThrows(ClassCastException.class, () -> zel_fnd_removable_memory_file_info_set_field_date(info, null, notInfo, 0));
            Object fileObj = zel_fnd_removable_memory_file_create_removable_memory_file(file, null);
            e = assertThrows(ClassCastException.class,
                () -> zel_fnd_removable_memory_file_set_field_info(file, null, fileObj, "not an info"));
            assertEquals("info is not a tarnwick.zel.box.document.RemovableMemoryFileInfoImpl", e.getMessage());
            e = assertThrows(ClassCastException.class,
                () -> zel_fnd_removable_memory_file_set_field_isfile(file, null, new RemovableMemoryFileInfoImpl(), true));
            assertEquals("file is not a tarnwick.zel.box.document.RemovableMemoryFileImpl", e.getMessage());
            assertThrows(ClassCastException.class,
                () -> zel_fnd_removable_memory_file_set_field_info(file, null, new Object(), new RemovableMemoryFileInfoImpl()));
            // Null objects are ignored.
            zel_fnd_removable_memory_file_info_set_field_name(info, null, null, "x");
            zel_fnd_removable_memory_file_info_set_field_date(info, null, null, 0);
            zel_fnd_removable_memory_file_set_field_info(file, null, null, null);
            zel_fnd_removable_memory_file_set_field_isfile(file, null, null, true);
            assertNull(((RemovableMemoryFileImpl) fileObj).getInfo());
        } finally {
            delete_zel_fnd_removable_memory_file_info(info);
            delete_zel_fnd_removable_memory_file(file);
        }
    }

    @Test
    void buildersUsedOnAnotherThread() throws Exception {
        long info = new_zel_fnd_removable_memory_file_info();
        long file = new_zel_fnd_removable_memory_file();
        try {
            for (int round = 0; round < 3; round++) {
                ExecutorService other = Executors.newSingleThreadExecutor();
                Object made = other.submit(() -> {
                    Object i = zel_fnd_removable_memory_file_info_create_removable_memory_file_info(info, null);
                    zel_fnd_removable_memory_file_info_set_field_name(info, null, i, "elsewhere");
                    zel_fnd_removable_memory_file_info_set_field_date(info, null, i, 60);
                    Object fo = zel_fnd_removable_memory_file_create_removable_memory_file(file, null);
                    zel_fnd_removable_memory_file_set_field_info(file, null, fo, i);
                    return fo;
                }).get();
                other.shutdown();
                RemovableMemoryFileImpl r = (RemovableMemoryFileImpl) made;
                assertEquals("elsewhere", r.getInfo().getName());
                assertEquals(60, r.getInfo().getDate().getTime() / 1000);
            }
        } finally {
            delete_zel_fnd_removable_memory_file_info(info);
            delete_zel_fnd_removable_memory_file(file);
        }
    }

    @Test
    void listingsFromManyThreads() throws Exception {
        long m = zel_fnd_document_manager_zel_fnd_get_instance();
        for (int i = 0; i < 50; i++) SimBox.addDocument("/t", "d" + i, i, i, 0);
        SimBox.setListingLimit(100);
        ExecutorService pool = Executors.newFixedThreadPool(6);
        List<Future<Integer>> sizes = new ArrayList<>();
        for (int t = 0; t < 24; t++) {
            sizes.add(pool.submit(() -> {
                ArrayList<Object> out = new ArrayList<>();
                int rc = zel_fnd_document_manager_zel_fnd_get_easy_box_list(m, null, "/t", out);
                return rc == 0 ? out.size() : -1;
            }));
        }
        for (Future<Integer> s : sizes) assertEquals(50, s.get());
        pool.shutdown();
    }

    @Test
    void recordsWithTextThatDoesNotFit() {
        long r = new_ZEL_FND_BOX_DETAIL_INFO();
        try {
            // Cut inside a multi-byte character: the bytes kept are what the record holds.
            ZEL_FND_BOX_DETAIL_INFO_box_pw_set(r, null, "abcdefghijklmno\u00e9");
            String pw = ZEL_FND_BOX_DETAIL_INFO_box_pw_get(r, null);
            assertEquals("abcdefghijklmno", pw, "the character cut by the field's size is dropped");
            // A lone surrogate, as Java writes it, reads back unchanged.
            ZEL_FND_BOX_DETAIL_INFO_box_pw_set(r, null, "ab\uDCFFc");
            assertEquals("ab\uDCFFc", ZEL_FND_BOX_DETAIL_INFO_box_pw_get(r, null));
            ZEL_FND_BOX_DETAIL_INFO_box_pw_set(r, null, "");
            assertEquals("", ZEL_FND_BOX_DETAIL_INFO_box_pw_get(r, null));
            ZEL_FND_BOX_DETAIL_INFO_box_number_set(0, null, 5);  // a null record is ignored
        } finally {
            delete_ZEL_FND_BOX_DETAIL_INFO(r);
        }
    }
}
