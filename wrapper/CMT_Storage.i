// package tarnwick.zel.wrapper.storage
// File and directory access on the device's drives: CMT_StorageIO, whose operations are all
// static (natives without a handle), its result and attribute constants.
%module CMT_Storage

%include "tovr_conventions.i"

%{
#include <memory>
#include <new>
#include "CMT_StorageIO.h"
using namespace tarnwick;
%}

// The named constants are natives (NAME_get); the further values have no name and no getter.
%javaconst(0) tarnwick::CMTDIO_HDD;
%javaconst(0) tarnwick::CMTDIO_READ;
%javaconst(0) tarnwick::CMTDIO_SEEK_CUR;
%javaconst(0) tarnwick::CMTDIO_ERROR;
%javaconst(0) tarnwick::CMTDIO_NOERROR;
%javaconst(0) tarnwick::CMTDIO_EOF;
%javaconst(0) tarnwick::CMT_StorageIO::CMTDIO_DIRECTORY;
%javaconst(0) tarnwick::CMT_StorageIO::CMTDIO_ARCHIVE;
%javaconst(0) tarnwick::CMT_StorageIO::CMTDIO_HIDDEN;
%javaconst(0) tarnwick::CMT_StorageIO::CMTDIO_READONLY;

// Outputs are one-element arrays; element 0 goes in and comes back unchanged unless the
// operation succeeded.
%apply unsigned long &INOUT { unsigned long &dir, unsigned long &file, unsigned long &done,
                              unsigned long &size, unsigned long &time };
%apply long &INOUT { long &position };
%apply int &INOUT { int &result, int &attributes };
%apply bool &INOUT { bool &yes };

// readdir's code is written whatever happened, but no JNI call follows a pending exception
// (the name's string could not be made).
%typemap(argout) int &result {
  if (!jenv->ExceptionCheck()) {
    jint jvalue = (jint)temp$argnum;
    jenv->SetIntArrayRegion($input, 0, 1, &jvalue);
  }
}

// read / write buffers: a Java byte[] copied into a native array of the same length. A size
// beyond the array (a negative Java size is a huge unsigned one) answers -1 without calling
// the library, so the native buffer is never overrun. The array is taken only after every
// other argument was checked; the native copy is freed on every path; write's buffer is not
// copied back.
%typemap(jni) signed char *buffer, const signed char *buffer "jbyteArray"
%typemap(jtype) signed char *buffer, const signed char *buffer "byte[]"
%typemap(jstype) signed char *buffer, const signed char *buffer "byte[]"
%typemap(javain) signed char *buffer, const signed char *buffer "$javainput"
%typemap(in) signed char *buffer (std::unique_ptr<signed char[]> temp, jsize length = 0, jbyteArray jarray = 0),
             const signed char *buffer (std::unique_ptr<signed char[]> temp, jsize length = 0, jbyteArray jarray = 0) {
  if (!$input) {
    SWIG_JavaThrowException(jenv, SWIG_JavaNullPointerException, "null array");
    return $null;
  }
  jarray = $input;
  $1 = 0;
}
// The size is the next argument (arg2, from jarg2) of both operations; any negative Java size
// is refused, not only those whose low 32 bits are large.
%typemap(check) signed char *buffer, const signed char *buffer {
  length$argnum = jenv->GetArrayLength(jarray$argnum);
  if (jarg2 < 0 || (unsigned long long)arg2 > (unsigned long long)length$argnum) return (jint)-1;
  temp$argnum.reset(new (std::nothrow) signed char[length$argnum > 0 ? length$argnum : 1]);
  if (!temp$argnum) {
    SWIG_JavaThrowException(jenv, SWIG_JavaOutOfMemoryError, "array memory allocation failed");
    return $null;
  }
  if (length$argnum > 0) jenv->GetByteArrayRegion(jarray$argnum, 0, length$argnum, (jbyte *)temp$argnum.get());
  $1 = temp$argnum.get();
}
%typemap(argout) signed char *buffer {
  if (length$argnum > 0 && !jenv->ExceptionCheck())
    jenv->SetByteArrayRegion(jarray$argnum, 0, length$argnum, (const jbyte *)temp$argnum.get());
}
%typemap(argout) const signed char *buffer ""

%ignore tarnwick::CMT_StorageIO::getDriveNumber;
%ignore tarnwick::CMT_StorageIO::getDVUOpenMode;
%ignore tarnwick::CMT_StorageIO::getCMTOpenMode;
%ignore tarnwick::CMT_StorageIO::getDVUSeekMode;
%ignore tarnwick::CMT_StorageIO::getReturnValue;

// Every operation is static: no handle to test.
TOVR_STATIC(tarnwick::CMT_StorageIO::init)
TOVR_STATIC(tarnwick::CMT_StorageIO::sync)
TOVR_STATIC(tarnwick::CMT_StorageIO::verifydiskmount)
TOVR_STATIC(tarnwick::CMT_StorageIO::remove_disk)
TOVR_STATIC(tarnwick::CMT_StorageIO::chdir)
TOVR_STATIC(tarnwick::CMT_StorageIO::mkdir)
TOVR_STATIC(tarnwick::CMT_StorageIO::existfile)
TOVR_STATIC(tarnwick::CMT_StorageIO::remove)
TOVR_STATIC(tarnwick::CMT_StorageIO::rename)
TOVR_STATIC(tarnwick::CMT_StorageIO::move)
TOVR_STATIC(tarnwick::CMT_StorageIO::opendir)
TOVR_STATIC(tarnwick::CMT_StorageIO::readdir)
TOVR_STATIC(tarnwick::CMT_StorageIO::closedir)
TOVR_STATIC(tarnwick::CMT_StorageIO::open)
TOVR_STATIC(tarnwick::CMT_StorageIO::read)
TOVR_STATIC(tarnwick::CMT_StorageIO::write)
TOVR_STATIC(tarnwick::CMT_StorageIO::fseek)
TOVR_STATIC(tarnwick::CMT_StorageIO::ftell)
TOVR_STATIC(tarnwick::CMT_StorageIO::fflush)
TOVR_STATIC(tarnwick::CMT_StorageIO::close)
TOVR_STATIC(tarnwick::CMT_StorageIO::is_directory)
TOVR_STATIC(tarnwick::CMT_StorageIO::is_file)
TOVR_STATIC(tarnwick::CMT_StorageIO::getfilesize)
TOVR_STATIC(tarnwick::CMT_StorageIO::getlastmodified)
TOVR_STATIC(tarnwick::CMT_StorageIO::setfileattribute)
TOVR_STATIC(tarnwick::CMT_StorageIO::getfileattribute)

%include "CMT_StorageIO.h"
