/**
 * The simulated device, controlled from Java: a workstation's stand-in for the device's
 * services, on which libtovrCMT.so runs unchanged. Test and tool code, never part of the
 * library's own jar; its natives are in {@code libtovrsimctl.so}.
 * <ul>
 * <li>{@link tarnwick.sim.SimSample}: a populated device in one call</li>
 * <li>{@link tarnwick.sim.SimDevice}: what the library asked of the device, forced answers and
 * outputs, the platform trace</li>
 * <li>{@link tarnwick.sim.SimEvents}: the device's notifications, raised on its own threads</li>
 * <li>{@link tarnwick.sim.SimJobs}, {@link tarnwick.sim.SimUsers},
 * {@link tarnwick.sim.SimAddressBook}, {@link tarnwick.sim.SimStorage},
 * {@link tarnwick.sim.SimSystem}: the state of each service</li>
 * </ul>
 */
package tarnwick.sim;
