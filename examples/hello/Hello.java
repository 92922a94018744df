import java.util.ArrayList;
import tarnwick.address.SearchKey;
import tarnwick.sim.SimSample;
import tarnwick.zel.address.PersonalAddressImpl;
import tarnwick.zel.box.document.RemovableMemoryFileImpl;
import tarnwick.zel.wrapper.address.cmt_address_book;
import tarnwick.zel.wrapper.box.zel_fnd_document_manager;
import tarnwick.zel.wrapper.system.cmt_init;
import tarnwick.zel.wrapper.user.ESV_ZEL_USER_AUTHMODE;
import tarnwick.zel.wrapper.user.ZEL_FND_CERTIFICATE_ID;
import tarnwick.zel.wrapper.user.zel_fnd_authentication;

/** A first device application: log in, search the address book, list the document box, log out. */
public class Hello {
    public static void main(String[] args) {
        SimSample.load();                                  // a workstation only: the sample device
        System.out.println("init: " + cmt_init.init());    // 0: running (the library loads itself)
        zel_fnd_authentication auth = new zel_fnd_authentication();
        ZEL_FND_CERTIFICATE_ID cert = new ZEL_FND_CERTIFICATE_ID();
        int rc = auth.login("alice", "secret", ESV_ZEL_USER_AUTHMODE.ESV_ZEL_USER_AUTHMODE_LOCAL, cert);
        System.out.println("login alice: result " + rc + ", certificate " + cert.getId());
        cmt_address_book book = new cmt_address_book();   // search type 1: personal addresses
        for (Object o : book.search_address(1, new SearchKey("Dana"))) {
            PersonalAddressImpl a = (PersonalAddressImpl) o;
            System.out.println("address: " + a.getName().getName() + " <" + a.getEmail().getMailAddress() + ">");
        }
        ArrayList<Object> box = new ArrayList<>();
        zel_fnd_document_manager.zel_fnd_get_instance().zel_fnd_get_easy_box_list("/Sales", box);
        for (Object o : box) {
            RemovableMemoryFileImpl f = (RemovableMemoryFileImpl) o;
            System.out.println("box /Sales: " + f.getInfo().getName() + ", " + f.getInfo().getDataSize() + " bytes");
        }
        System.out.println("logout: result " + auth.logout(cert.getId()));
        book.delete();
        cert.delete();
        auth.delete();
    }
}
