/**
 * The device's events, as the library delivers them: once {@code zel_fnd_event_manager.init()}
 * has run, every notification of the device calls a static {@code fire...} method of one of
 * these classes on a thread of the device service, which hands it to the listeners an
 * application added to the proxy's registry, its public field {@code listeners} (a
 * {@link tarnwick.zel.controller.event.proxy.Listeners}): {@code JobProxy.listeners.add(l)},
 * {@code .remove(l)}, {@code .clear()}.
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
 *
 * <h2>What a listener may do</h2>
 * <ul>
 *   <li><b>Threads.</b> Listeners run on the device's threads, never on an application thread. Each
 *       device service delivers one notification at a time: a listener that never returns holds every
 *       later event of that service, and makes {@code terminate()} or {@code delete()} of the event
 *       manager wait for it.
 *   <li><b>Calls.</b> A listener may call the library, including operations that make the device
 *       report further events, and may stop, delete or restart ({@code terminate(); init();}) the
 *       event manager. The event being delivered still reaches the listeners after it; later ones
 *       reach only the listeners of a started manager.
 *   <li><b>Exceptions.</b> Every listener of a proxy is called, whatever an earlier one throws. When
 *       the last one has run, the first exception goes on to the library, the later ones attached to
 *       it as suppressed. What the library then does with it depends on the service: for job,
 *       job-information and IC card events it is printed to standard error and cleared, and the
 *       device is told the event failed; for device-status ({@link CommonProxy},
 *       {@link SynchronousEventProxy}) and panel events the device is told the event was handled
 *       and the exception stays with the thread, so it comes out of the library call that caused the
 *       event when a listener of the same service made that call (a nested library call inside the
 *       same notification).
 *   <li><b>Adding and removing.</b> Listeners may be added and removed from any thread, listeners
 *       included. A listener removed while an event is being delivered may still receive that event.
 * </ul>
 */
package tarnwick.zel.controller.event.proxy;
