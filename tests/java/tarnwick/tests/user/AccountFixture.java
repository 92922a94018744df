package tarnwick.tests.user;

import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.wrapper.account.CMT_Account_ModuleJNI;

/** The set-up of the account module's tests: a started library, a fresh device, a new manager and configuration per case. */
abstract class AccountFixture {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();

    long manager;
    long config;

    @BeforeEach
    void start() {
        manager = device.make(CMT_Account_ModuleJNI::new_cmt_account_manager, CMT_Account_ModuleJNI::delete_cmt_account_manager);
        config = device.make(CMT_Account_ModuleJNI::new_cmt_account_config, CMT_Account_ModuleJNI::delete_cmt_account_config);
    }
}
