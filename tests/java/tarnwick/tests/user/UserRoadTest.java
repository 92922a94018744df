package tarnwick.tests.user;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tarnwick.zel.wrapper.job.ESV_ZEL_JOB_CATEGORY.ESV_ZEL_JOB_CATEGORY_COPY;
import static tarnwick.zel.wrapper.job.ESV_ZEL_JOB_PHB_CATEGORY.ESV_ZEL_JOB_PHB_CATEGORY_COPY;
import static tarnwick.zel.wrapper.job.ESV_ZEL_JOB_SETTING.ESV_ZEL_JOB_SETTING_COPIES;
import static tarnwick.zel.wrapper.job.ESV_ZEL_JOB_SETTING.ESV_ZEL_JOB_SETTING_ORIGINAL_PAGES;
import static tarnwick.zel.wrapper.job.ESV_ZEL_JOB_SETTING.ESV_ZEL_JOB_SETTING_USER_NAME;

import java.util.concurrent.ArrayBlockingQueue;
import java.util.concurrent.BlockingQueue;
import java.util.concurrent.TimeUnit;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.extension.RegisterExtension;
import tarnwick.sim.SimAcc;
import tarnwick.sim.SimJobs;
import tarnwick.sim.SimUsers;
import tarnwick.tests.support.SimDeviceExtension;
import tarnwick.zel.controller.event.device.ICCardInfo;
import tarnwick.zel.controller.event.proxy.AccProxy;
import tarnwick.zel.wrapper.account.CMT_Account_ModuleJNI;
import tarnwick.zel.wrapper.job.zel_fnd_job_moduleJNI;
import tarnwick.zel.wrapper.user.ZELFNDUserJNI;

/**
 * Roads through several modules: a login completed from the IC card event, and the pages of a
 * copy job counted to the department of the job's user.
 */
class UserRoadTest {
    @RegisterExtension
    static final SimDeviceExtension device = new SimDeviceExtension();


    private final BlockingQueue<ICCardInfo> cards = new ArrayBlockingQueue<>(4);
    private final AccProxy.Listener listener = new AccProxy.Listener() {
        @Override public void icCard(ICCardInfo info) { cards.add(info); }
        @Override public void icCardError(int code) {}
        @Override public void icCardDevice(int vendor, int product, boolean connected, byte types) {}
    };
    private long auth;

    @BeforeEach
    void start() {
        device.listen(AccProxy.listeners, listener);
        device.startEventManager();
        auth = device.make(ZELFNDUserJNI::new_zel_fnd_authentication, ZELFNDUserJNI::delete_zel_fnd_authentication);
    }

    @Test
    void aCardHeldToTheReaderLogsItsOwnerIn() throws Exception {
        SimUsers.addLocalUser("alice", "secret", "Alice", "alice@example.com", 1, 0, 0, "", "0123456789ABCDEF", "");
        long[] answers = SimAcc.iccardDetect("0123456789ABCDEF", 3, 0, 0);
        assertEquals(0L, answers[0]);
        ICCardInfo card = cards.poll(10, TimeUnit.SECONDS);
        assertNotNull(card);
        long cert = ZELFNDUserJNI.new_ZEL_FND_CERTIFICATE_ID();
        assertEquals(0, ZELFNDUserJNI.zel_fnd_authentication_iccard_login(auth, null, card.getCardId(), cert, null));
        long id = ZELFNDUserJNI.ZEL_FND_CERTIFICATE_ID_id_get(cert, null);
        assertEquals("alice", SimUsers.sessionUser(id));
        long rec = ZELFNDUserJNI.new_ESV_ZEL_USERINFO_RECORD();
        assertEquals(0, ZELFNDUserJNI.zel_fnd_authentication_get_login_user_info(auth, null, 0, rec, null));
        assertEquals("Alice", ZELFNDUserJNI.ESV_ZEL_USERINFO_RECORD_user_name_get(rec, null));
        assertEquals(0, ZELFNDUserJNI.zel_fnd_authentication_logout(auth, null, id));
        assertEquals("", SimUsers.sessionUser(id));
        // An unknown card: the event arrives, the login does not find anyone.
        SimAcc.iccardDetect("FFFFFFFFFFFFFFFF", 3, 0, 0);
        ICCardInfo stranger = cards.poll(10, TimeUnit.SECONDS);
        assertNotNull(stranger);
        assertEquals(2, ZELFNDUserJNI.zel_fnd_authentication_iccard_login(auth, null, stranger.getCardId(), cert, null));
        ZELFNDUserJNI.delete_ESV_ZEL_USERINFO_RECORD(rec);
        ZELFNDUserJNI.delete_ZEL_FND_CERTIFICATE_ID(cert);
    }

    private void copy(String user, long pages, long copies) {
        long proxy = zel_fnd_job_moduleJNI.new_zel_fnd_job_proxy();
        long[] id = {0};
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_generate_jobinfo(proxy, null, ESV_ZEL_JOB_PHB_CATEGORY_COPY, id));
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_set_value__SWIG_0(proxy, null, id[0], ESV_ZEL_JOB_SETTING_ORIGINAL_PAGES, pages));
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_set_value__SWIG_0(proxy, null, id[0], ESV_ZEL_JOB_SETTING_COPIES, copies));
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_set_value__SWIG_1(proxy, null, id[0], ESV_ZEL_JOB_SETTING_USER_NAME, user));
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_commit_jobinfo(proxy, null, id[0]));
        long[] uid = {0};
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_create_job(proxy, null, ESV_ZEL_JOB_CATEGORY_COPY, id[0], uid));
        assertEquals(0, zel_fnd_job_moduleJNI.zel_fnd_job_proxy_start(proxy, null, uid[0]));
        assertTrue(SimJobs.waitJobDone(uid[0], 20000));
        zel_fnd_job_moduleJNI.delete_zel_fnd_job_proxy(proxy);
    }

    @Test
    void printedCopyPagesCountToTheUsersDepartment() {
        SimUsers.addLocalUser("carol", "pw", "Carol", "carol@example.com", 1, 0, 7, "", "", "");
        long config = CMT_Account_ModuleJNI.new_cmt_account_config();
        long accounts = CMT_Account_ModuleJNI.new_cmt_account_manager();
        long dept = CMT_Account_ModuleJNI.new_cmt_account("7");
        assertEquals(0, CMT_Account_ModuleJNI.cmt_account_manager_add(accounts, null, dept, null));
        copy("carol", 2, 1);
        assertEquals(0L, SimUsers.deptCounter("7", 3), "department accounting is off");
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_config_set_mode(config, null, true));
        copy("carol", 2, 3);
        assertEquals(6L, SimUsers.deptCounter("7", 3), "separate counting: the copy slot");
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_config_set_copy_print_count(config, null, 1));
        copy("carol", 1, 1);
        assertEquals(1L, SimUsers.deptCounter("7", 0), "mixed counting: the shared slot");
        copy("nobody", 1, 1);
        assertEquals(1L, SimUsers.deptCounter("7", 0));
        assertEquals(1, CMT_Account_ModuleJNI.cmt_account_manager_reset_counter(accounts, null, "7"));
        assertEquals(0L, SimUsers.deptCounter("7", 3));
        assertEquals(0L, SimUsers.deptCounter("7", 0));
        CMT_Account_ModuleJNI.delete_cmt_account(dept);
        CMT_Account_ModuleJNI.delete_cmt_account_manager(accounts);
        CMT_Account_ModuleJNI.delete_cmt_account_config(config);
    }
}
