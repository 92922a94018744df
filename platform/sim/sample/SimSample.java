package tarnwick.sim;

/**
 * The sample device: a freshly started simulated device with people, departments, an address
 * book, a document box and machine values, so that a new program starts from a populated device.
 *
 * <pre>
 * local users    alice / secret  "Alice Archer"  alice@example.com, IC card 0123456789ABCDEF,
 *                                 department 1, administrator
 *                bob / bobpw     "Bob Baker"     bob@example.com, department 2
 *                carol / carolpw "Carol Cole"    carol@example.com, department 1
 * departments    1 Sales, 2 Engineering, 3 Front office
 * address book   Alice Archer, Bob Baker, Carol Cole, Dana Dunn (dana@example.org), Erik Engel,
 *                then "Person 00001" ... "Person 00300" (305 entries, each with a mail address)
 * document box   /Sales: price-list.pdf, contract-draft.pdf; /Engineering: schematic.tif
 * machine        model type 0x5A31; tray 1 80 % paper, tray 2 35 %; counters (A4, colour
 *                kind 1) total 12873, print 9012, copy 3861, scan 2250; IC card reader present
 * </pre>
 *
 * <pre>{@code
 * SimSample.load();   // then cmt_init.init() and the library's modules as on the device
 * }</pre>
 */
public final class SimSample {
    static {
        System.loadLibrary("tovrsimctl");
    }

    private SimSample() {}

    /** Alice's IC card, as the reader reports it. */
    public static final String CARD_ALICE = "0123456789ABCDEF";
    /** Paper size under which the sample counters are kept ({@link SimSystem#count}). */
    public static final int PAPER_SIZE = 4;
    /** Colour kind under which the sample counters are kept ({@link SimSystem#count}). */
    public static final int COLOR = 1;

    /**
     * Resets every simulated service (forcings, call record, jobs, users, departments, address
     * book, drives, document box, system values, panel, reader) and loads the sample. Drives keep
     * their default folders ({@link SimStorage#setFolder} moves them); the call record is empty
     * afterwards.
     */
    public static native void load();
}
