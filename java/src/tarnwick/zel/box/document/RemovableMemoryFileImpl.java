package tarnwick.zel.box.document;

/** One entry of removable memory or the document box: its information and whether it is a file. */
public class RemovableMemoryFileImpl {
    private RemovableMemoryFileInfoImpl info;
    private boolean isfile;

    public RemovableMemoryFileImpl() {}

    public RemovableMemoryFileInfoImpl getInfo() {
        return info;
    }

    /** True for a document or file, false for a folder. */
    public boolean isFile() {
        return isfile;
    }

    @Override
    public String toString() {
        return "RemovableMemoryFileImpl[isfile=" + isfile + ", info=" + info + "]";
    }
}
