package tarnwick.sim;

import java.nio.ByteBuffer;
import java.nio.ByteOrder;
import java.nio.charset.StandardCharsets;

/**
 * Control of the simulated address book (the common facade's personal-address search) from Java
 * tests and tools.
 *
 * <p>Match rule: an entry matches when its name begins with the search name, ASCII letters
 * compared without case; the empty name matches every entry. Each search (prepare) is an open
 * resource of kind {@link #SEARCH} until it is finished; each fetch writes at most the prepare's
 * per-fetch count of records. Records are 2120 bytes in the device's layout, numbers in this
 * machine's byte order.
 */
public final class SimAddressBook {
    static {
        System.loadLibrary("tovrsimctl");
    }

    private SimAddressBook() {}

    /** Open-resource kind of the searches ({@link SimDevice#openResources(String)}). */
    public static final String SEARCH = "address search";
    public static final int RECORD_SIZE = 2120;
    /** Result codes of the simulated search. */
    public static final long PARAM_ERROR = 0x04010201L;
    public static final long HANDLE_ERROR = 0x04010202L;
    public static final long TOO_MANY_SEARCHES = 0x04010203L;

    /** Empties the book, closes every open search, restores the limit and handle numbering. */
    public static native void reset();

    /** Appends one record of {@link #RECORD_SIZE} bytes (false for another length). */
    public static native boolean addRecord(byte[] record);

    public static boolean add(Entry entry) {
        return addRecord(entry.toBytes());
    }

    public static native boolean remove(int index);

    public static native void clear();

    public static native int size();

    /** A copy of record {@code index} (zero-filled when there is none). */
    public static native byte[] record(int index);

    /** Appends {@code count} complete entries numbered from {@code first} ("Person 00001" ...). */
    public static native void generate(int count, int first);

    /**
     * Appends the entries of a text file (blocks starting "[address]", lines "member = value",
     * members named as in the device's records); the number added, or -1 (see {@link #loadError()}).
     */
    public static native int load(String path);

    /** Why the last failed {@link #load} failed. */
    public static native String loadError();

    public static native int openSearches();

    public static native void setSearchLimit(int limit);

    public static native int searchLimit();

    /** The next {@code times} prepares answer {@code result} and write the two outputs. */
    public static native void forcePrepare(long result, long handle, long second, int times);

    /**
     * The next {@code times} fetches answer {@code result}, write {@code retNum} and copy
     * {@code records} (each {@link #RECORD_SIZE} bytes; at most the search's per-fetch count).
     */
    public static native void forceFetch(long result, long retNum, byte[][] records, int times);

    /** The next {@code times} finishes answer {@code result} and close nothing. */
    public static native void forceFinish(long result, int times);

    /**
     * The next {@code n} prepares (fetches) work as usual. Forcings queue in order: one armed
     * after this applies to the call after them.
     */
    public static native void passPrepares(int n);

    public static native void passFetches(int n);

    /** At the {@code nth} prepare from now (1: the next) the book is first cut or grown to {@code size}. */
    public static native void resizeAtPrepare(int nth, int size);

    /** The next {@code prepares} prepares work as usual; then the next platform allocation fails. */
    public static native void failAllocAfterPrepares(int prepares);

    /** Writes {@code text}'s UTF-8 bytes at {@code offset}, at most {@code size - 1} of them, and a NUL. */
    public static void putText(byte[] record, int offset, int size, String text) {
        byte[] b = text.getBytes(StandardCharsets.UTF_8);
        int n = Math.min(b.length, size - 1);
        java.util.Arrays.fill(record, offset, offset + size, (byte) 0);
        System.arraycopy(b, 0, record, offset, n);
    }

    /** A personal address with every member, laid out by {@link #toBytes()}. */
    public static final class Entry {
        public String name = "", furigana = "";
        public String ftpHost = "", ftpPath = "", ftpLogin = "", ftpPw = "";
        public int ftpPort;
        public String smbHost = "", smbPath = "", smbLogin = "", smbPw = "";
        public int smbPort;
        public String faxNo = "", faxCode = "", faxCodePw = "", faxName = "", companyName = "", postName = "";
        public int communicationSpeed, title;
        public byte ecm, cipherSendSet, cipherSendNo, cipherBoxSet, cipherBoxNo;
        public String iFaxAddress = "";
        public int mode, sendSize, resolution, fileType;
        public String mailAddress = "";

        public Entry() {}

        public Entry(String name) {
            this.name = name;
        }

        public byte[] toBytes() {
            byte[] r = new byte[RECORD_SIZE];
            ByteBuffer b = ByteBuffer.wrap(r).order(ByteOrder.nativeOrder());
            putText(r, 0, 193, name);
            putText(r, 193, 193, furigana);
            putText(r, 386, 65, ftpHost);
            putText(r, 451, 129, ftpPath);
            b.putShort(580, (short) ftpPort);
            putText(r, 582, 65, ftpLogin);
            putText(r, 647, 65, ftpPw);
            putText(r, 712, 65, smbHost);
            putText(r, 777, 129, smbPath);
            b.putShort(906, (short) smbPort);
            putText(r, 908, 129, smbLogin);
            putText(r, 1037, 129, smbPw);
            putText(r, 1168, 33, faxNo);
            b.putInt(1204, communicationSpeed);
            r[1208] = ecm;
            putText(r, 1209, 21, faxCode);
            putText(r, 1230, 21, faxCodePw);
            r[1251] = cipherSendSet;
            r[1252] = cipherSendNo;
            r[1253] = cipherBoxSet;
            r[1254] = cipherBoxNo;
            putText(r, 1255, 193, faxName);
            putText(r, 1448, 193, companyName);
            putText(r, 1641, 193, postName);
            b.putInt(1836, title);
            putText(r, 1840, 129, iFaxAddress);
            b.putInt(1972, mode);
            b.putInt(1976, sendSize);
            b.putInt(1980, resolution);
            b.putInt(1984, fileType);
            putText(r, 1988, 129, mailAddress);
            return r;
        }
    }
}
