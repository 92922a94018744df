/**
 * The device's events, as the library delivers them: once {@code zel_fnd_event_manager.init()}
 * has run, every notification of the device calls a static {@code fire...} method of one of
 * these classes on a thread of the device service, which hands it to the listeners an
 * application added ({@code JobProxy.addListener(...)} and so on). A listener should return
 * quickly and hand longer work to a thread of its own.
 * <ul>
 * <li>{@link tarnwick.zel.controller.event.proxy.CommonProxy}: device status (sleep, toner,
 * paper, covers, USB memory, logout ...)</li>
 * <li>{@link tarnwick.zel.controller.event.proxy.JobProxy}: job states and scan progress</li>
 * <li>{@link tarnwick.zel.controller.event.proxy.JobInfoProxy}: pages printed, scanned and sent,
 * job-log entries</li>
 * <li>{@link tarnwick.zel.controller.event.proxy.AccProxy}: IC cards held to the reader, and the
 * reader itself</li>
 * <li>{@link tarnwick.zel.controller.event.proxy.PanelProxy}: application keys and the panel's
 * automatic reset</li>
 * </ul>
 */
package tarnwick.zel.controller.event.proxy;
