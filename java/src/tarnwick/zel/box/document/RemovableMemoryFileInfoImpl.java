package tarnwick.zel.box.document;

import java.util.Date;

/** Name, data size, date and access path of one file or folder of removable memory or the document box. */
public class RemovableMemoryFileInfoImpl {
    private String name;
    private long datasize;
    private Date date;
    private String path;

    public RemovableMemoryFileInfoImpl() {}

    public String getName() {
        return name;
    }

    public long getDataSize() {
        return datasize;
    }

    public Date getDate() {
        return date;
    }

    public String getPath() {
        return path;
    }

    @Override
    public String toString() {
        return "RemovableMemoryFileInfoImpl[name=" + name + ", datasize=" + datasize + ", date=" + date + ", path=" + path + "]";
    }
}
