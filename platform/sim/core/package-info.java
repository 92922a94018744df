/**
 * The simulated device, controlled from Java: a workstation's stand-in for the device's
 * services, on which libtovrCMT.so runs unchanged. Test and tool code, never part of the
 * library's own jar; its natives are in {@code libtovrsimctl.so}.
 * <ul>
 * <li>{@link tarnwick.sim.SimSample}: a populated device in one call</li>
 * <li>{@link tarnwick.sim.SimDevice}: what the library asked of the device, forced answers and
 * outputs, the platform trace, the reset of the whole device</li>
 * <li>{@link tarnwick.sim.SimCommon}, {@link tarnwick.sim.SimPanel}, {@link tarnwick.sim.SimAcc},
 * {@link tarnwick.sim.SimJobs}: the device's notifications, raised on the facades' own threads,
 * and the state behind them</li>
 * <li>{@link tarnwick.sim.SimUsers}, {@link tarnwick.sim.SimAddressBook},
 * {@link tarnwick.sim.SimStorage}, {@link tarnwick.sim.SimBox}, {@link tarnwick.sim.SimSystem},
 * {@link tarnwick.sim.SimWebService}: the state of each service</li>
 * </ul>
 * One folder of the sources per service holds its Java class, its C++ control and its facade.
 */
package tarnwick.sim;
