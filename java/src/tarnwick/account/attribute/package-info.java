/**
 * Attributes of a department account as the library hands them to Java ({@link
 * tarnwick.account.attribute.AccountID}: the department a user belongs to).
 */
package tarnwick.account.attribute;
