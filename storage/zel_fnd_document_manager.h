// The easy document box: lists a folder's entries into a Java ArrayList of
// RemovableMemoryFileImpl objects and deletes documents. One process-wide instance, created on
// first use under the platform thread guard and never destroyed.
#ifndef TARNWICK_ZEL_FND_DOCUMENT_MANAGER_H
#define TARNWICK_ZEL_FND_DOCUMENT_MANAGER_H

#include <jni.h>

#include <atomic>
#include <string>

namespace tarnwick {

/**
 * The easy document box: lists a folder's documents and deletes documents. There is one
 * instance ({@link #zel_fnd_get_instance()}).
 */
class zel_fnd_document_manager {
public:
    static zel_fnd_document_manager* zel_fnd_get_instance();

    /** @return 0 deleted, 8 the box refused the path, 1 any other failure */
    int zel_fnd_delete_document(const std::string& path);
    /**
     * Appends one {@code tarnwick.zel.box.document.RemovableMemoryFileImpl} per entry of the
     * folder {@code path} (for example "/Sales") to {@code list}, a {@code java.util.ArrayList}.
     * @return 0 success, 1 failure (a Java exception met while building an entry stays pending)
     */
    int zel_fnd_get_easy_box_list(const std::string& path, jobject list);

private:
    zel_fnd_document_manager();
    ~zel_fnd_document_manager();
    zel_fnd_document_manager(const zel_fnd_document_manager&) = delete;
    zel_fnd_document_manager& operator=(const zel_fnd_document_manager&) = delete;

    static std::atomic<zel_fnd_document_manager*> instance;
};

}  // namespace tarnwick

#endif
