// What every module class carries besides its natives: it loads libtovrCMT.so the first time it
// is used, so an application needs no System.loadLibrary of its own, and one that loaded the
// library itself (by name, or by path as a framework does) keeps working; and what the API
// reference needs: the headers' Javadoc comments as they stand, and the summary of the classes
// SWIG makes per module. Included once, from
// tovr_conventions.i. The code sits in each module class rather than in a shared Java class so
// that a module built into another library (the test probe) compiles on its own.

%pragma(java) jniclasscode=%{
  // When this module's natives are bound already nothing is loaded: a delete_ native called
  // with the null handle does nothing once the library is there, and throws
  // UnsatisfiedLinkError before. Otherwise the library comes from java.library.path, and a
  // missing one is one UnsatisfiedLinkError naming that path. (All in the initializer: the
  // module class declares its natives and nothing else.)
  static {
    java.lang.reflect.Method probe = null;
    for (java.lang.reflect.Method m : $imclassname.class.getDeclaredMethods()) {
      if (java.lang.reflect.Modifier.isNative(m.getModifiers()) && m.getName().startsWith("delete_")
          && m.getParameterCount() == 1 && m.getParameterTypes()[0] == long.class
          && (probe == null || m.getName().compareTo(probe.getName()) < 0)) {
        probe = m;
      }
    }
    boolean bound = false;
    if (probe != null) {
      try {
        probe.invoke(null, 0L);
        bound = true;
      } catch (java.lang.reflect.InvocationTargetException e) {
        if (!(e.getCause() instanceof UnsatisfiedLinkError)) throw new IllegalStateException(e.getCause());
      } catch (IllegalAccessException e) {
        // not callable: load as if it were not bound
      }
    }
    if (!bound) {
      try {
        System.loadLibrary("tovrCMT");
      } catch (UnsatisfiedLinkError e) {
        String path = System.getProperty("java.library.path", "");
        String reason = String.valueOf(e.getMessage());
        throw new UnsatisfiedLinkError(reason.startsWith("no tovrCMT in ")
            ? "libtovrCMT.so is not on java.library.path (" + path
              + "): start java with -Djava.library.path=<the folder that holds libtovrCMT.so>"
            : "libtovrCMT.so could not be loaded from java.library.path (" + path + "): " + reason);
      }
    }
  }
%}

// The /** */ comments of the headers and interface files are Javadoc already: copied as they
// stand (SWIG's Doxygen translation would break {@code ...} and add a <br> to every line).
%feature("doxygen:notranslate");

%pragma(java) jniclassimports=%{
/**
 * The native methods of this package's module, one per exported function of libtovrCMT.so.
 * Applications call the proxy classes of this package, which pass the native handles on to
 * these. The library is loaded when this class is first used, unless it was loaded before;
 * without it, that first use throws an {@link UnsatisfiedLinkError} naming
 * {@code java.library.path}.
 */
%}

%pragma(java) moduleimports=%{
/**
 * The constants of this package's module that belong to no class of their own (the values of
 * the platform's size and kind definitions), and its free functions.
 */
%}
