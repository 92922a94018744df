/**
 * Entries of the document box and of removable memory as the library builds them: an entry
 * ({@link tarnwick.zel.box.document.RemovableMemoryFileImpl}) and its name, size, date and path
 * ({@link tarnwick.zel.box.document.RemovableMemoryFileInfoImpl}).
 */
package tarnwick.zel.box.document;
