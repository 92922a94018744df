package tarnwick.tests.address;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.lang.reflect.Field;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.address.SearchKey;
import tarnwick.sim.SimAddressBook;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.address.PersonalAddressImpl;
import tarnwick.zel.address.attribute.FtpInfoImpl;
import tarnwick.zel.address.attribute.NameInfoImpl;
import tarnwick.zel.wrapper.address.CMT_ADDRESSBOOKJNI;

/** The Java classes of the address book, the module's natives, and the simulated book's file loading. */
class AddressClassesTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    // A field the library sets by name: declared in the class or, as GetFieldID finds it, in a
    // superclass (FTP and SMB share theirs).
    private static void field(Class<?> c, String name, Class<?> type) throws Exception {
        Field f = null;
        for (Class<?> k = c; f == null && k != null; k = k.getSuperclass()) {
            f = Arrays.stream(k.getDeclaredFields()).filter(d -> d.getName().equals(name)).findFirst().orElse(null);
        }
        assertNotNull(f, c.getName() + "." + name);
        assertEquals(type, f.getType(), c.getName() + "." + name);
        assertFalse(Modifier.isStatic(f.getModifiers()));
        assertFalse(Modifier.isFinal(f.getModifiers()));
    }

    @Test
    void classesAndFieldsTheLibrarySets() throws Exception {
        String p = "tarnwick.zel.address.attribute.";
        for (String n : new String[] {"NameInfoImpl", "EmailInfoImpl", "FtpInfoImpl", "SmbInfoImpl", "FaxInfoImpl", "IfaxInfoImpl"}) {
            Class.forName(p + n).getConstructor().newInstance();
        }
        field(Class.forName(p + "NameInfoImpl"), "name", String.class);
        field(Class.forName(p + "NameInfoImpl"), "pronunciation", String.class);
        field(Class.forName(p + "EmailInfoImpl"), "mailAddress", String.class);
        for (String n : new String[] {"FtpInfoImpl", "SmbInfoImpl"}) {
            Class<?> c = Class.forName(p + n);
            field(c, "host", String.class);
            field(c, "path", String.class);
            field(c, "port", int.class);
            field(c, "loginName", String.class);
            field(c, "password", String.class);
        }
        Class<?> fax = Class.forName(p + "FaxInfoImpl");
        for (String s : new String[] {"faxNum", "faxAddress", "name", "department", "company"}) field(fax, s, String.class);
        for (String b : new String[] {"bitrateType", "ecm", "encode", "encodeID", "encodeBox", "encodeBoxNum", "honorificTitleType"}) {
            field(fax, b, byte.class);
        }
        Class<?> ifax = Class.forName(p + "IfaxInfoImpl");
        field(ifax, "ifaxAddress", String.class);
        for (String b : new String[] {"modeType", "sizeType", "resolutionType", "fileType"}) field(ifax, b, byte.class);
        Class<?> personal = Class.forName("tarnwick.zel.address.PersonalAddressImpl");
        personal.getConstructor().newInstance();
        field(personal, "name", Class.forName(p + "NameInfoImpl"));
        field(personal, "email", Class.forName(p + "EmailInfoImpl"));
        field(personal, "ftp", Class.forName(p + "FtpInfoImpl"));
        field(personal, "smb", Class.forName(p + "SmbInfoImpl"));
        field(personal, "fax", Class.forName(p + "FaxInfoImpl"));
        field(personal, "ifax", Class.forName(p + "IfaxInfoImpl"));
        field(SearchKey.class, "name", String.class);
    }

    @Test
    void equalityAndText() {
        PersonalAddressImpl a = AddressFixture.generated(3);
        PersonalAddressImpl b = AddressFixture.generated(3);
        assertEquals(a, b);
        assertEquals(a.hashCode(), b.hashCode());
        assertNotEquals(a, AddressFixture.generated(4));
        assertTrue(a.toString().contains("name=\"Person 00003\""), a.toString());
        // Passwords are not shown.
        assertFalse(a.toString().contains("ftppw00003"), a.toString());
        assertTrue(new FtpInfoImpl("h", "p", 21, "u", "secret").toString().contains("password=***"));
        assertEquals(new NameInfoImpl(), new NameInfoImpl());
        assertNull(new PersonalAddressImpl().getName());
        assertEquals(new SearchKey("a"), new SearchKey("a"));
        assertNotEquals(new SearchKey("a"), new SearchKey("b"));
        assertEquals("SearchKey{name=\"a\"}", new SearchKey("a").toString());
        SearchKey k = new SearchKey();
        assertNull(k.getName());
        k.setName("x");
        assertEquals("x", k.getName());
    }

    @Test
    void moduleNativesAndTheirJavaTypes() {
        List<String> natives = new ArrayList<>();
        for (Method m : CMT_ADDRESSBOOKJNI.class.getDeclaredMethods()) {
            if (!Modifier.isNative(m.getModifiers())) continue;
            StringBuilder s = new StringBuilder(m.getReturnType().getSimpleName()).append(' ').append(m.getName()).append('(');
            Class<?>[] params = m.getParameterTypes();
            for (int i = 0; i < params.length; ++i) s.append(i == 0 ? "" : ", ").append(params[i].getSimpleName());
            natives.add(s.append(')').toString());
        }
        natives.sort(null);
        assertEquals(List.of("Object[] cmt_address_book_search_address(long, cmt_address_book, int, Object)",
                             "long new_cmt_address_book()", "void delete_cmt_address_book(long)").stream().sorted().toList(),
                     natives);
    }

    @Test
    void bookLoadedFromAFile() throws Exception {
        Path file = Files.createTempFile("book", ".txt");
        try {
            Files.writeString(file, String.join("\n",
                    "# two entries",
                    "[address]",
                    "name = Carla Rossi",
                    "furigana = carla",
                    "ftp_host = ftp.mfp.test",
                    "ftp_port = 21",
                    "communication_speed = 0x102",
                    "fax_code = 1234",
                    "fax_code_pw = 99",
                    "fax_name = Carla",
                    "post_name = Sales",
                    "mail_address = carla@mfp.test",
                    "",
                    "[address]",
                    "name = Carl Berg",
                    "title = 0x0301",
                    ""));
            assertEquals(2, SimAddressBook.load(file.toString()));
            Object[] found = AddressFixture.search(1, new SearchKey("carl"));
            assertEquals(2, found.length);
            PersonalAddressImpl c = (PersonalAddressImpl) found[0];
            assertEquals("Carla Rossi", c.getName().getName());
            assertEquals("carla", c.getName().getPronunciation());
            assertEquals("ftp.mfp.test", c.getFtp().getHost());
            assertEquals(21, c.getFtp().getPort());
            assertEquals(2, c.getFax().getBitrateType());
            assertEquals("1234", c.getFax().getFaxAddress());
            assertEquals("Carla", c.getFax().getName());
            assertEquals("Sales", c.getFax().getDepartment());
            assertEquals("carla@mfp.test", c.getEmail().getMailAddress());
            assertEquals(1, ((PersonalAddressImpl) found[1]).getFax().getHonorificTitleType());

            Files.writeString(file, "[address]\nname = x\nnot_a_member = 1\n");
            assertEquals(-1, SimAddressBook.load(file.toString()));
            assertTrue(SimAddressBook.loadError().endsWith(":3: unknown member not_a_member"), SimAddressBook.loadError());
            assertEquals(2, SimAddressBook.size());  // nothing of a bad file is added
            assertEquals(-1, SimAddressBook.load(file.toString() + ".missing"));
        } finally {
            Files.deleteIfExists(file);
        }
    }
}
