/** The records that device events carry: an IC card held to the reader, device data. */
package tarnwick.zel.controller.event.device;
