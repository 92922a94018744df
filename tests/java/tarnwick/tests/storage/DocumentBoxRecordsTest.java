package tarnwick.tests.storage;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.box.zel_fnd_document_box_moduleJNI;

/** Every field of the box module's records through its setter and getter, and the size constants. */
class DocumentBoxRecordsTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension(false);

    static Object call(String name, Object... args) {
        for (Method m : zel_fnd_document_box_moduleJNI.class.getMethods()) {
            if (!m.getName().equals(name)) continue;
            try {
                return m.invoke(null, args);
            } catch (InvocationTargetException e) {
                if (e.getCause() instanceof RuntimeException) throw (RuntimeException) e.getCause();
                throw new AssertionError(e.getCause());
            } catch (IllegalAccessException e) {
                throw new AssertionError(e);
            }
        }
        throw new AssertionError("no native " + name);
    }

    static String text(int n) {
        StringBuilder b = new StringBuilder();
        for (int i = 0; i < n; i++) b.append((char) ('a' + i % 26));
        return b.toString();
    }

    /** kinds: s<N> (char[N]), i32, u32, u16, i8, u8, rec:<TYPE>. */
    static void check(String record, String... fields) {
        for (String field : fields) {
            String name = field.substring(0, field.indexOf(':'));
            String kind = field.substring(field.indexOf(':') + 1);
            long h = (Long) call("new_" + record);
            assertNotEquals(0L, h);
            String set = record + "_" + name + "_set";
            String get = record + "_" + name + "_get";
            String what = record + "." + name;
            try {
                if (kind.startsWith("s")) {
                    int n = Integer.parseInt(kind.substring(1));
                    assertEquals("", call(get, h, null), what);
                    call(set, h, null, "abc");
                    assertEquals("abc", call(get, h, null), what);
                    call(set, h, null, text(n + 5));
                    assertEquals(text(n - 1), call(get, h, null), what + " keeps N-1 bytes");
                    call(set, h, null, text(n - 1));
                    assertEquals(text(n - 1), call(get, h, null), what);
                    call(set, h, null, (Object) null);
                    assertEquals("", call(get, h, null), what + " set from null");
                } else if (kind.equals("i32")) {
                    call(set, h, null, -5);
                    assertEquals(-5, call(get, h, null), what);
                    call(set, h, null, Integer.MAX_VALUE);
                    assertEquals(Integer.MAX_VALUE, call(get, h, null), what);
                } else if (kind.equals("u32")) {
                    call(set, h, null, 0xFFFFFFFFL);
                    assertEquals(0xFFFFFFFFL, call(get, h, null), what);
                    call(set, h, null, 0x1_0000_0005L);
                    assertEquals(5L, call(get, h, null), what + " narrowed to 32 bits");
                } else if (kind.equals("u16")) {
                    call(set, h, null, 65535);
                    assertEquals(65535, call(get, h, null), what);
                    call(set, h, null, 65536 + 21);
                    assertEquals(21, call(get, h, null), what + " low bits kept");
                } else if (kind.equals("i8")) {
                    call(set, h, null, (byte) -2);
                    assertEquals((byte) -2, call(get, h, null), what);
                } else if (kind.equals("u8")) {
                    call(set, h, null, (short) 255);
                    assertEquals((short) 255, call(get, h, null), what);
                    call(set, h, null, (short) 0x1FF);
                    assertEquals((short) 255, call(get, h, null), what + " low byte kept");
                } else if (kind.startsWith("rec:")) {
                    String type = kind.substring(4);
                    long inner = (Long) call(get, h, null);
                    assertNotEquals(0L, inner, what);
                    assertEquals(inner, (Long) call(get, h, null), what + " is the member inside");
                    long src = (Long) call("new_" + type);
                    try {
                        String textField = firstTextField(type);
                        call(type + "_" + textField + "_set", src, null, "copied");
                        call(set, h, null, src, null);
                        assertEquals("copied", call(type + "_" + textField + "_get", inner, null), what);
                    } finally {
                        call("delete_" + type, src);
                    }
                } else {
                    throw new AssertionError(kind);
                }
            } finally {
                call("delete_" + record, h);
            }
        }
        call("delete_" + record, 0L);
    }

    static String firstTextField(String type) {
        switch (type) {
            case "ESV_ZEL_NAME_INFO": return "name";
            case "ESV_ZEL_FTP_INFO": return "ftp_host";
            case "ESV_ZEL_SMB_INFO": return "smb_host";
            case "ESV_ZEL_FAX_INFO": return "fax_no";
            case "ESV_ZEL_IFAX_INFO": return "i_fax_address";
            case "ESV_ZEL_EMAIL_INFO": return "mail_address";
            default: throw new AssertionError(type);
        }
    }

    @Test
    void boxDetail() {
        check("ZEL_FND_BOX_DETAIL_INFO", "box_number:u32", "box_name:s193", "box_owner_type:i32", "box_owner_name:s129",
              "box_owner_login_name:s129", "box_share:i32", "box_capacity:u32", "box_preservation_period:u8",
              "box_data_update:i32", "box_doc_delete_after_job:i32", "box_pw:s17");
    }

    @Test
    void addressParts() {
        check("ESV_ZEL_NAME_INFO", "name:s193", "furigana:s193");
        check("ESV_ZEL_EMAIL_INFO", "mail_address:s129");
        check("ESV_ZEL_FTP_INFO", "ftp_host:s65", "ftp_path:s129", "ftp_port:u16", "ftp_login:s65", "ftp_pw:s65");
        check("ESV_ZEL_SMB_INFO", "smb_host:s65", "smb_path:s129", "smb_port:u16", "smb_login:s129", "smb_pw:s129");
        check("ESV_ZEL_FAX_INFO", "fax_no:s33", "communication_speed:i32", "ecm:i8", "fax_code:s21", "fax_code_pw:s21",
              "cipher_send_set:i8", "cipher_send_no:i8", "cipher_box_set:i8", "cipher_box_no:i8", "name:s193",
              "company_name:s193", "post_name:s193", "title:i32");
        check("ESV_ZEL_IFAX_INFO", "i_fax_address:s129", "mode:i32", "send_size:i32", "resolution:i32", "file_type:i32");
    }

    @Test
    void addressRecords() {
        check("ESV_ZEL_PERSONAL_ADDRESS", "name_info:rec:ESV_ZEL_NAME_INFO", "ftp_info:rec:ESV_ZEL_FTP_INFO",
              "smb_info:rec:ESV_ZEL_SMB_INFO", "fax_info:rec:ESV_ZEL_FAX_INFO", "ifax_info:rec:ESV_ZEL_IFAX_INFO",
              "email_info:rec:ESV_ZEL_EMAIL_INFO");
        check("ESV_ZEL_GROUP_ADDRESS", "group_id:u32", "name_info:rec:ESV_ZEL_NAME_INFO");
        // Members lie in memory in the order name, FTP, SMB, fax, Internet fax, e-mail.
        long p = (Long) call("new_ESV_ZEL_PERSONAL_ADDRESS");
        try {
            long name = (Long) call("ESV_ZEL_PERSONAL_ADDRESS_name_info_get", p, null);
            long ftp = (Long) call("ESV_ZEL_PERSONAL_ADDRESS_ftp_info_get", p, null);
            long smb = (Long) call("ESV_ZEL_PERSONAL_ADDRESS_smb_info_get", p, null);
            long fax = (Long) call("ESV_ZEL_PERSONAL_ADDRESS_fax_info_get", p, null);
            long ifax = (Long) call("ESV_ZEL_PERSONAL_ADDRESS_ifax_info_get", p, null);
            long mail = (Long) call("ESV_ZEL_PERSONAL_ADDRESS_email_info_get", p, null);
            assertTrue(p == name && name < ftp && ftp < smb && smb < fax && fax < ifax && ifax < mail);
        } finally {
            call("delete_ESV_ZEL_PERSONAL_ADDRESS", p);
        }
    }

    @Test
    void sizeConstants() {
        Object[][] rows = {{"ADDRESS_NAME_SIZE", 193}, {"ADDRESS_KANA_SIZE", 193}, {"FTP_HOST_SIZE", 65},
            {"FTP_PATH_SIZE", 129}, {"FTP_LOGIN_NAME_SIZE", 65}, {"FTP_LOGIN_PW_SIZE", 65}, {"SMB_HOST_SIZE", 65},
            {"SMB_PATH_SIZE", 129}, {"SMB_LOGIN_NAME_SIZE", 129}, {"SMB_LOGIN_PW_SIZE", 129}, {"FAX_SIZE", 33},
            {"FAX_COOD_SIZE", 21}, {"FAX_COOD_PW_SIZE", 21}, {"SEND_SHEET_NAME_SIZE", 193}, {"SEND_SHEET_CNP_SIZE", 193},
            {"SEND_SHEET_POST_SIZE", 193}, {"I_FAX_SIZE", 129}, {"E_MAIL_SIZE", 129}, {"BOX_NAME", 193},
            {"BOX_OWNER_NAME", 129}, {"DOC_NAME", 256}, {"BOX_PASSWORD", 17}, {"NODE_NAME", 1531},
            {"ACCESS_PATH_SIZE", 1531}};
        assertEquals(24, rows.length);
        for (Object[] r : rows) assertEquals(r[1], call("ESV_ZEL_MAX_" + r[0] + "_get"), (String) r[0]);
    }
}
