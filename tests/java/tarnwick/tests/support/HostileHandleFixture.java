package tarnwick.tests.support;

import static org.junit.jupiter.api.Assertions.assertEquals;

import java.util.function.LongConsumer;
import java.util.function.LongSupplier;
import org.junit.jupiter.api.Test;
import tarnwick.sim.SimDevice;

/**
 * The set-up of a module's hostile tests ({@link HandleFixture}), with the case they all have: a
 * delete of a null handle, of the module's class and of each of its records, reaches nothing.
 */
public abstract class HostileHandleFixture extends HandleFixture {
    private final LongConsumer[] recordDeletes;

    protected HostileHandleFixture(LongSupplier make, LongConsumer delete, LongConsumer... recordDeletes) {
        super(make, delete);
        this.recordDeletes = recordDeletes;
    }

    @Test
    void deleteOfNullDoesNothing() {
        delete.accept(0);
        for (LongConsumer d : recordDeletes) d.accept(0);
        assertEquals(0, SimDevice.allCalls().length);
    }
}
