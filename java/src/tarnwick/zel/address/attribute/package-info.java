/**
 * The parts of a personal address: its name, and its e-mail, FTP, shared-folder (SMB), fax and
 * Internet-fax destinations.
 */
package tarnwick.zel.address.attribute;
