/**
 * The event proxies: the library calls their static {@code fire...} methods when the device reports
 * an event, and each hands the event to the listeners registered with it. Events flow only while an
 * event manager ({@code tarnwick.zel.wrapper.event.zel_fnd_event_manager}) is started.
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
