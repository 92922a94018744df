package tarnwick.account.attribute;

import tarnwick.user.attribute.TextAttribute;

/** The account (department) number of a user, as decimal text. */
public final class AccountID extends TextAttribute {
    public AccountID(String value) {
        super(value);
    }
}
