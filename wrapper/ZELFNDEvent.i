// package tarnwick.zel.wrapper.event
// The event module: the event manager, the panel proxy, the two card-reader records and the
// size and type constants.
%module ZELFNDEvent

%include "tovr_conventions.i"
%include <stdint.i>

%{
#include "esv_zel_acc_facade.h"
#include "esv_zel_panel_facade.h"
#include "zel_fnd_event_manager.h"
#include "zel_fnd_panel_proxy.h"
%}

// ---------------------------------------------------------------------------------------------
// Access-control facade: the card record and the FeliCa setting record, the reader types and
// text sizes as natives NAME_get. The facade, its observer and the notification record of a
// reader state belong to the event bridge.
%javaconst(0) ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_A;
%javaconst(0) ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_B;
%javaconst(0) ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_C;
%javaconst(0) ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_HID;
%javaconst(0) ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_MAG;
%javaconst(0) ESV_ZEL_ACC_ICCARD_DEVICE_TYPE_LEGIC;
%javaconst(0) ESV_ZEL_ACC_CARD_ID_SIZE;
%javaconst(0) ESV_ZEL_ACC_FELICA_SYSTEM_CODE;
%javaconst(0) ESV_ZEL_ACC_FELICA_SERVICE_CODE_1;
%javaconst(0) ESV_ZEL_ACC_FELICA_SERVICE_CODE_2;
%ignore ESV_ZEL_ACC_ICCARD_DATA_PARTITION;
%ignore ESV_ZEL_ACC_ICCARD_DATA_PARTITION_SIZE;
%ignore ESV_ZEL_ACC_ICCARD_STATE_CHANGE_INFO;
%ignore ESV_ZEL_ACC_ICCARD_DEVICE_INFO;  // the reader identity belongs to the IC card module
%ignore tarnwick::esv_zel_acc_observer;
%ignore tarnwick::esv_zel_acc_facade;
%include "esv_zel_acc_facade.h"

// ---------------------------------------------------------------------------------------------
// Panel facade: the three enumerations the panel proxy takes as they are. The key event and
// the buzzer, LED and view-update types stay behind the proxy, which translates into them.
%ignore ESV_ZEL_PANEL_KEY_EVENT;
%ignore ESV_ZEL_BUZZER_TYPE;
%ignore ESV_ZEL_LED_STATE;
%ignore ESV_ZEL_PANEL_VIEW_UPDATE_TYPE;
%ignore tarnwick::esv_zel_panel_observer;
%ignore tarnwick::esv_zel_panel_facade;
%include "esv_zel_panel_facade.h"

// ---------------------------------------------------------------------------------------------
// The event manager's Java class (its natives as they are). A started manager stays reachable
// from the class until terminate() or delete(): an application that keeps no reference to it
// keeps its events, where the finalizer would otherwise delete it at the next collection.
// init(), terminate() and delete() may be called from any thread, listeners included. One thread
// at a time works on the native manager; a call made meanwhile on another thread leaves its work
// to that one and returns at once, so a listener that stops the manager never waits for a stop
// that is waiting for the listener, and the native manager is deleted only when no thread is
// inside it.
%typemap(javaimports) tarnwick::zel_fnd_event_manager %{
/**
 * Starts and stops the delivery of device events to the event proxies under
 * {@code tarnwick.zel.controller.event.proxy}.
 *
 * <p>{@link #init()} registers the library's observers with the device's services; events then
 * reach the proxies' listeners until {@link #terminate()} or {@link #delete()}. A started manager
 * stays reachable until then, whether the application keeps a reference to it or not
 * ({@link #started()} lists them).
 *
 * <p>Listeners run on the device's threads, one notification at a time per service. A listener may
 * stop, delete or restart ({@code terminate(); init();}) the manager: the event being delivered
 * still reaches the listeners after it, later events reach only a started manager's. A listener
 * that never returns holds its service's notifications and makes {@code terminate()} and
 * {@code delete()} wait for it. While one thread starts or stops the manager, a call of
 * {@code init()}, {@code terminate()} or {@code delete()} on another thread is left to that one and
 * returns at once. The package description of the proxies says what else a listener may do.
 */
%}

%typemap(javacode) tarnwick::zel_fnd_event_manager %{
  private static final java.util.Set<zel_fnd_event_manager> STARTED =
      java.util.concurrent.ConcurrentHashMap.newKeySet();
  // Work left by other threads for the one working on the native manager: 'i' init, 't' terminate.
  private final java.util.ArrayDeque<Character> swigWork = new java.util.ArrayDeque<>();
  private boolean swigWorking;
  // The native manager, when delete() was called while a thread was working on it.
  private long swigDeleteLater;

  /** The managers started and neither terminated nor deleted since, in no particular order. */
  public static java.util.List<zel_fnd_event_manager> started() {
    return new java.util.ArrayList<>(STARTED);
  }

  // Does `work` on the native manager, then what other threads leave meanwhile; or, while another
  // thread works on it, leaves `work` to that thread.
  private void swigDo(char work) {
    final long cPtr;  // stays valid while this thread works: delete() leaves the native delete to it
    synchronized (this) {
      if (swigCPtr == 0) throw new IllegalStateException("zel_fnd_event_manager has been deleted");
      swigWork.add(work);
      if (swigWorking) return;
      swigWorking = true;
      cPtr = swigCPtr;
    }
    boolean done = false;
    try {
      for (Character next; (next = swigNext(false)) != null; ) {
        final boolean start = next == 'i';
        if (start) {
          ZELFNDEventJNI.zel_fnd_event_manager_init(cPtr, this);
        } else {
          ZELFNDEventJNI.zel_fnd_event_manager_terminate(cPtr, this);
        }
        synchronized (this) {
          if (start && swigCPtr != 0) {
            STARTED.add(this);
          } else {
            STARTED.remove(this);
          }
        }
      }
      done = true;
    } finally {
      if (!done) swigNext(true);
    }
  }

  // The next work, or null when there is none left (or `stop`): the thread then stops working,
  // and deletes the native manager when delete() was called meanwhile.
  private Character swigNext(boolean stop) {
    final long doomed;
    synchronized (this) {
      final Character next = stop || swigCPtr == 0 ? null : swigWork.poll();
      if (next != null) return next;
      swigWork.clear();
      swigWorking = false;
      doomed = swigDeleteLater;
      swigDeleteLater = 0;
    }
    if (doomed != 0) ZELFNDEventJNI.delete_zel_fnd_event_manager(doomed);
    return null;
  }
%}

%javamethodmodifiers tarnwick::zel_fnd_event_manager::init "/**
   * Creates the observers and registers them with the device's services; events then reach the
   * proxies' listeners. A second call without {@link #terminate()} registers a second set.
   *
   * @return true
   * @throws IllegalStateException when the manager has been deleted
   */
  public";
%typemap(javaout) bool tarnwick::zel_fnd_event_manager::init {
    swigDo('i');
    return true;
  }

%javamethodmodifiers tarnwick::zel_fnd_event_manager::terminate "/**
   * Removes the observers from the device's services and destroys them; no event reaches the
   * listeners afterwards. Waits for notifications being delivered on other threads. Calling it
   * again does nothing.
   *
   * @return true
   * @throws IllegalStateException when the manager has been deleted
   */
  public";
%typemap(javaout) bool tarnwick::zel_fnd_event_manager::terminate {
    swigDo('t');
    return true;
  }

%typemap(javadestruct, methodname="delete", methodmodifiers="/**
   * Terminates the manager and frees it. Calling it again does nothing.
   */
  public") tarnwick::zel_fnd_event_manager {
    final long doomed;
    synchronized (this) {
      if (swigCPtr == 0) return;
      doomed = swigCMemOwn ? swigCPtr : 0;
      swigCMemOwn = false;
      swigCPtr = 0;
      STARTED.remove(this);
      if (swigWorking) {
        swigDeleteLater = doomed;
        return;
      }
    }
    if (doomed != 0) ZELFNDEventJNI.delete_zel_fnd_event_manager(doomed);
  }

// ---------------------------------------------------------------------------------------------
// The library's classes.
%include "zel_fnd_panel_proxy.h"
%include "zel_fnd_event_manager.h"

// ---------------------------------------------------------------------------------------------
// The 24 field sizes this module shares with the system-information and document-box modules.
%include "esv_zel_max_sizes.i"
