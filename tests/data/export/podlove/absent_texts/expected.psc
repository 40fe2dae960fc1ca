<psc:chapters version="1.2" xmlns:psc="http://podlove.org/simple-chapters">
<psc:chapter start="00:00:01.000" title="" />
<psc:chapter start="00:00:02.000" title="" href="https://x.example"/>
</psc:chapters>
