package tarnwick.examples.demo;

import java.util.Collection;
import java.util.Map;

/**
 * The little JSON the panel needs: it writes maps, lists, texts, numbers and booleans, and reads
 * one flat object of texts, numbers and booleans (what the page sends).
 */
final class Json {
    private Json() {}

    /**
     * The members of a flat JSON object, each value as its text (numbers and booleans as
     * written); IllegalArgumentException saying what is wrong otherwise.
     */
    static Map<String, String> object(String text) {
        Reader r = new Reader(text);
        Map<String, String> out = new java.util.LinkedHashMap<>();
        r.skip();
        r.expect('{');
        r.skip();
        if (r.peek() == '}') {
            r.next();
        } else {
            for (;;) {
                r.skip();
                String key = r.string();
                r.skip();
                r.expect(':');
                r.skip();
                String value = r.value();
                if (out.put(key, value) != null) throw new IllegalArgumentException("\"" + key + "\" appears twice");
                r.skip();
                char c = r.next();
                if (c == '}') break;
                if (c != ',') throw r.error("expected , or }");
            }
        }
        r.skip();
        if (!r.atEnd()) throw r.error("text after the object");
        return out;
    }

    private static final class Reader {
        private final String s;
        private int at;

        Reader(String s) {
            this.s = s;
        }

        boolean atEnd() {
            return at >= s.length();
        }

        char peek() {
            if (atEnd()) throw error("unexpected end");
            return s.charAt(at);
        }

        char next() {
            char c = peek();
            ++at;
            return c;
        }

        void skip() {
            while (!atEnd() && " \t\r\n".indexOf(s.charAt(at)) >= 0) ++at;
        }

        void expect(char c) {
            if (next() != c) throw error("expected " + c);
        }

        IllegalArgumentException error(String what) {
            return new IllegalArgumentException("the request is not a flat JSON object: " + what + " at character " + at);
        }

        String string() {
            expect('"');
            StringBuilder b = new StringBuilder();
            for (;;) {
                char c = next();
                if (c == '"') return b.toString();
                if (c < 0x20) throw error("control character in a text");
                if (c != '\\') {
                    b.append(c);
                    continue;
                }
                char e = next();
                switch (e) {
                    case '"': case '\\': case '/': b.append(e); break;
                    case 'b': b.append('\b'); break;
                    case 'f': b.append('\f'); break;
                    case 'n': b.append('\n'); break;
                    case 'r': b.append('\r'); break;
                    case 't': b.append('\t'); break;
                    case 'u':
                        if (at + 4 > s.length()) throw error("short \\u escape");
                        try {
                            b.append((char) Integer.parseInt(s.substring(at, at + 4), 16));
                        } catch (NumberFormatException x) {
                            throw error("bad \\u escape");
                        }
                        at += 4;
                        break;
                    default: throw error("bad escape");
                }
            }
        }

        String value() {
            char c = peek();
            if (c == '"') return string();
            int start = at;
            while (!atEnd() && "+-.0123456789eEtrufalsn".indexOf(s.charAt(at)) >= 0) ++at;
            String word = s.substring(start, at);
            if (word.equals("true") || word.equals("false")) return word;
            if (word.matches("-?(0|[1-9][0-9]*)(\\.[0-9]+)?([eE][+-]?[0-9]+)?")) return word;
            throw error(c == '{' || c == '[' ? "values are texts, numbers or booleans" : "bad value");
        }
    }

    static String of(Object v) {
        StringBuilder b = new StringBuilder();
        write(b, v);
        return b.toString();
    }

    private static void write(StringBuilder b, Object v) {
        if (v == null) {
            b.append("null");
        } else if (v instanceof Number || v instanceof Boolean) {
            b.append(v);
        } else if (v instanceof Map) {
            b.append('{');
            boolean first = true;
            for (Map.Entry<?, ?> e : ((Map<?, ?>) v).entrySet()) {
                if (!first) b.append(',');
                first = false;
                text(b, String.valueOf(e.getKey()));
                b.append(':');
                write(b, e.getValue());
            }
            b.append('}');
        } else if (v instanceof Collection) {
            b.append('[');
            boolean first = true;
            for (Object o : (Collection<?>) v) {
                if (!first) b.append(',');
                first = false;
                write(b, o);
            }
            b.append(']');
        } else {
            text(b, v.toString());
        }
    }

    private static void text(StringBuilder b, String s) {
        b.append('"');
        for (int i = 0; i < s.length(); ++i) {
            char c = s.charAt(i);
            switch (c) {
                case '"': b.append("\\\""); break;
                case '\\': b.append("\\\\"); break;
                case '\n': b.append("\\n"); break;
                case '\r': b.append("\\r"); break;
                case '\t': b.append("\\t"); break;
                default:
                    if (c < 0x20 || c == '<' || c == '>' || c == '&' || c == 0x2028 || c == 0x2029) {
                        b.append(String.format("\\u%04x", (int) c));
                    } else {
                        b.append(c);
                    }
            }
        }
        b.append('"');
    }
}
