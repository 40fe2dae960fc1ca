<psc:chapters version="1.2" xmlns:psc="http://podlove.org/simple-chapters">
<psc:chapter start="00:00:00.000" title="&amp;&lt;&gt;&quot;&apos;" href="&amp;&lt;&gt;&quot;&apos;"/>
</psc:chapters>
