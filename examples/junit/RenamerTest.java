import static org.junit.Assert.assertEquals;

import com.kvo.talvern.TalvernException;
import com.kvo.talvern.appliance.NodeName;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import org.junit.Before;
import org.junit.Test;

public class RenamerTest {
    private static final Path APPLIANCE = Paths.get(System.getenv("TALVERN_APPLIANCE"));

    /** The program: names the appliance, in up to three attempts. */
    static String rename(String name) {
        for (int attempt = 1; ; attempt++) {
            try {
                return new NodeName().setNodeName(name) ? "done" : "refused";
            } catch (TalvernException e) {
                if (attempt == 3) {
                    return "failed: " + e.getMessage();
                }
            }
        }
    }

    /** What becomes of the next changes of the node name, on an appliance that is factory-new otherwise. */
    private static void given(String fault) throws IOException {
        String appliance = "{'faults': [{'operation': 'nodeName::set', " + fault + "}]}";
        Files.write(APPLIANCE, appliance.replace('\'', '"').getBytes("UTF-8"));
    }

    @Before
    public void startFresh() throws IOException {
        Files.deleteIfExists(APPLIANCE);
    }

    @Test
    public void namesTheAppliance() {
        assertEquals("done", rename("rack-7"));
        assertEquals("rack-7", new NodeName().getNodeName());
    }

    @Test
    public void triesAgain() throws IOException {
        given("'outcome': 'exception', 'times': 2");
        assertEquals("done", rename("rack-7"));
    }

    @Test
    public void givesUp() throws IOException {
        given("'outcome': 'exception', 'text': 'the disk is full'");
        assertEquals("failed: the disk is full", rename("rack-7"));
    }

    @Test
    public void saysThatANameIsRefused() throws IOException {
        given("'outcome': 'failure'");
        assertEquals("refused", rename("rack-7"));
    }
}
